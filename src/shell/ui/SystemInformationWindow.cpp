#include "shell/ui/SystemInformationWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "platform/qt/Widgets.h"
#include "shell/ui/LauncherWindow.h"

#include "MachineFacts.h"

namespace kestrava::shell::ui {

using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kCellPadding = 10;

QTreeWidget* PageWidget(const ReportPage& page) {
  auto* table = Named(new QTreeWidget, "lst" + ToQt(page.name), ToQt(page.title));
  table->setColumnCount(2);
  table->setHeaderHidden(true);
  table->setRootIsDecorated(false);
  table->setAlternatingRowColors(true);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setTextElideMode(Qt::ElideNone);
  for (const auto& [label, value] : page.lines) {
    auto* row = new QTreeWidgetItem(table, {ToQt(label), ToQt(value)});
    row->setToolTip(1, ToQt(value));
    row->setSizeHint(1, {0, table->fontMetrics().height() + kCellPadding});
  }
  table->setUniformRowHeights(true);
  table->setIndentation(0);
  table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  table->header()->setStretchLastSection(true);
  return table;
}

}  // namespace

SystemInformationWindow::SystemInformationWindow(InformationSources sources)
    : StationWindow(kSystemInformationName), sources_(std::move(sources)) {
  BuildUi();
  Refresh();
  ApplySkin();
}

void SystemInformationWindow::BuildUi() {
  setWindowTitle("System Information");
  resize(680, 380);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(10);
  pages_ = Named(new QTabWidget, "tabPages", "Pages");
  column->addWidget(pages_, 1);
  auto* buttons = new QHBoxLayout;
  auto* copy = Named(new QPushButton("&Copy All"), "cmdCopy", "Copy all to the clipboard");
  auto* ok = Named(new QPushButton("OK"), "cmdOK", "OK");
  ok->setDefault(true);
  buttons->addWidget(copy);
  buttons->addStretch(1);
  buttons->addWidget(ok);
  column->addLayout(buttons);
  connect(copy, &QPushButton::clicked, this, [this] { CopyAll(); });
  connect(ok, &QPushButton::clicked, this, [this] { Unload(); });
}

void SystemInformationWindow::Refresh() {
  report_.pages = {ProgramPage(), SystemPage(), GraphicsPage(), SoundPage(),
                   FoldersPage(sources_.settingsFile, sources_.shippedFolder)};
  const int shown = std::max(0, pages_->currentIndex());
  while (pages_->count() > 0) delete pages_->widget(0);
  for (const ReportPage& page : report_.pages) pages_->addTab(PageWidget(page), ToQt(page.title));
  pages_->setCurrentIndex(shown);
}

void SystemInformationWindow::SetTag(std::string_view tag) {
  StationWindow::SetTag(tag);
  pages_->setCurrentIndex(PageIndex(report_, tag));
}

void SystemInformationWindow::Show() {
  Refresh();  // screens and folders may have changed
  StationWindow::Show();
}

void SystemInformationWindow::CopyAll() {
  QGuiApplication::clipboard()->setText(ToQt(ReportText(report_)));
}

}  // namespace kestrava::shell::ui
