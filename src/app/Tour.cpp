#include "Tour.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QMenu>
#include <QVariant>
#include <cstdio>
#include <utility>

#include "platform/Doors.h"
#include "platform/Files.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/TextViewer.h"
#include "platform/qt/Widgets.h"
#include "shell/Menus.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"

namespace kestrava::app {

using platform::qt::ToQt;

namespace {

constexpr int kPatienceMs = 60000;
constexpr int kCalmMs = 400;

QWidget* Loaded(std::string_view name) {
  return dynamic_cast<QWidget*>(platform::TheWindows().Find(name));
}

void Say(const QString& line) {
  std::fputs(qPrintable(line + "\n"), stdout);
  std::fflush(stdout);
}

/// The window that was loaded last: the one that ShowNew has just made.
QWidget* Newest() {
  const auto loaded = platform::TheWindows().Loaded();
  return loaded.empty() ? nullptr : dynamic_cast<QWidget*>(loaded.back().second);
}

void UnloadWidget(QWidget* widget) {
  if (auto* window = dynamic_cast<platform::Window*>(widget)) platform::TheWindows().Unload(*window);
}

/// A window with a painted surface has its picture only when its surface has one, and one that fills itself by a timer
/// says so.
bool AllPresented(const QWidget& window) {
  const QVariant filled = window.property(platform::qt::kFilledProperty);
  if (filled.isValid() && !filled.toBool()) return false;
  for (const auto* surface : window.findChildren<platform::qt::SurfaceWidget*>()) {
    if (surface->isVisible() && !surface->HasPresented()) return false;
  }
  return true;
}

/// The tag with which a single window is opened.
std::string TagOf(std::string_view name) {
  if (name == platform::qt::TextViewer::kName) return platform::InAppDir("faq.html").string();
  return name == "WorldView" ? std::string(shell::WorldTag()) : "";
}

QAbstractButton* LauncherButtonOf(int index) {
  QWidget* launcher = Loaded(shell::kLauncherName);
  return launcher ? launcher->findChild<QAbstractButton*>(platform::qt::ArrayName("BUTmenu", index)) : nullptr;
}

}  // namespace

Tour::Tour(const std::string& folder, const std::vector<std::string>& windows) : folder_(ToQt(folder)) {
  QDir().mkpath(folder_);
  patience_.setSingleShot(true);
  patience_.setInterval(kPatienceMs);
  calm_.setSingleShot(true);
  calm_.setInterval(kCalmMs);
  connect(&patience_, &QTimer::timeout, this, [this] { GiveUp(); });
  connect(&calm_, &QTimer::timeout, this, [this] { TakePicture(); });
  for (const std::string& name : windows) PlanWindow(name);
  qApp->installEventFilter(this);
  patience_.start();
}

void Tour::PlanWindow(const std::string& name) {
  const QString picture = ToQt(name);
  if (name == shell::ui::kSplashName) return;  // seen at the start
  if (name == shell::kLauncherName) {
    stops_.push_front({picture, [] { return Loaded(shell::kLauncherName); }});
    return;
  }
  if (name == shell::ui::kMenuName) {  // never shown itself: its menus are
    for (const shell::LauncherButton& button : shell::LauncherButtons()) {
      if (button.action == shell::ButtonAction::kPopUp) PlanMenu(std::string(button.target), button.index);
    }
    return;
  }
  for (const shell::MenuEntry& entry : shell::MenuEntries()) {
    if (entry.window != name || entry.tag.empty()) continue;
    const bool another = entry.action == shell::EntryAction::kShowNew;
    stops_.push_back({picture + "-" + ToQt(entry.tag), [&entry, another]() -> QWidget* {
                        platform::Windows& all = platform::TheWindows();
                        another ? all.ShowNew(entry.window, entry.tag) : all.Show(entry.window, entry.tag);
                        return another ? Newest() : Loaded(entry.window);
                      }});
  }
  stops_.push_back({picture, [name] {
                      platform::TheWindows().Show(name, TagOf(name));
                      return Loaded(name);
                    }});
}

void Tour::PlanMenu(const std::string& menu, int button) {
  stops_.push_back({ToQt(menu), [button]() -> QWidget* {
                      if (auto* control = LauncherButtonOf(button)) control->click();
                      return QApplication::activePopupWidget();
                    }});
}

bool Tour::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget) return false;
  if (event->type() == QEvent::Show && !started_ && widget == Loaded(shell::ui::kSplashName)) {
    splashSaved_ = Save(*widget, ToQt(shell::ui::kSplashName));  // it ends by itself as soon as the launcher stands
  }
  if (event->type() != QEvent::Paint) return false;
  if (!started_) {
    if (widget->window() == Loaded(shell::kLauncherName) && !Loaded(shell::ui::kSplashName)) {
      started_ = true;
      platform::TheEventLoop().Later([this] { NextStop(); });
    }
  } else if (subject_ && widget->window() == subject_) {
    LookAgain();
  }
  return false;
}

void Tour::NextStop() {
  if (!Loaded(shell::kLauncherName)) return;  // the run was ended in the middle of the tour
  if (stops_.empty()) return End(splashSaved_);
  patience_.start();
  calm_.stop();  // taking a picture paints, which started it again
  QWidget* subject = nullptr;
  platform::RunUntrapped("Tour", [&] { subject = stops_.front().open(); });
  subject_ = subject;
  if (!subject_) return GiveUp();
  subject_->update();
}

void Tour::LookAgain() {
  if (AllPresented(*subject_)) calm_.start();
}

void Tour::TakePicture() {
  const QPointer<QWidget> subject = std::exchange(subject_, nullptr);  // painting and yields of now count no more
  calm_.stop();
  if (!subject) return GiveUp();
  const QString picture = stops_.front().picture;
  stops_.pop_front();
  if (!Save(*subject, picture) || !SaveMenusOf(*subject, picture)) return End(false);
  if (qobject_cast<QMenu*>(subject)) {
    subject->close();
  } else if (subject && subject != Loaded(shell::kLauncherName)) {
    UnloadWidget(subject);
  }
  platform::TheEventLoop().Later([this] { NextStop(); });
}

bool Tour::Save(QWidget& widget, const QString& picture) {
  const QString file = folder_ + "/" + picture + ".png";
  const bool saved = widget.grab().save(file);
  Say((saved ? "saved " : "could not save ") + file);
  return saved;
}

/// The menus that a window pops up, each by itself; those that stand in another one are seen from there.
bool Tour::SaveMenusOf(QWidget& window, const QString& picture) {
  if (picture.contains('-') || qobject_cast<QMenu*>(&window)) return true;
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    if (menu->objectName().isEmpty() || qobject_cast<QMenu*>(menu->parentWidget())) continue;
    menu->popup(window.mapToGlobal(window.rect().center()));
    const bool saved = Save(*menu, picture + "-" + menu->objectName());
    menu->close();
    if (!saved) return false;
  }
  return true;
}

void Tour::GiveUp() {
  const QString where = stops_.empty() ? "the launcher" : stops_.front().picture;
  Say("the tour ends: " + where + " does not appear");
  End(false);
}

void Tour::End(bool complete) {
  complete_ = complete;
  patience_.stop();
  calm_.stop();
  qApp->removeEventFilter(this);
  if (QWidget* launcher = Loaded(shell::kLauncherName)) {
    launcher->close();
  } else {
    platform::TheEventLoop().Quit(1);
  }
}

}  // namespace kestrava::app
