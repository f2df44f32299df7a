#include "TableView.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "platform/Messages.h"
#include "platform/Speech.h"
#include "platform/qt/Widgets.h"
#include "views2d/ui/TableView.h"

namespace kestrava::views2d::ui {

using platform::qt::Named;
using platform::qt::SkinButton;

namespace {

constexpr int kMarginPx = 16;
constexpr int kGapPx = 10;
constexpr int kHeightPx = 520;
constexpr QSize kLeastSize{340, 240};

struct StripEntry {
  TableLabel label;
  const char* objectName;
  const char* caption;
};
constexpr std::array kStrip{
    StripEntry{TableLabel::kLocation, "Slocation", "Location"},
    StripEntry{TableLabel::kLat, "Slat", "Latitude"},
    StripEntry{TableLabel::kLong, "Slong", "Longitude"},
    StripEntry{TableLabel::kHeight, "Sheight", "Height"},
    StripEntry{TableLabel::kLocalTime, "Slocaltime", "Local time"},
    StripEntry{TableLabel::kGmt, "Sgmt", "UTC"},
};

}  // namespace

TableView::TableView(const orbit::Sky& sky) : StationWindow(kTableViewName) {
  setWindowTitle("Kestrava - Tabular Satellite Position Data");
  setProperty(platform::qt::kFilledProperty, false);
  behaviour_ = std::make_unique<TableWindow>(sky, *this);
  BuildUi();
  ConnectSignals();
  behaviour_->Load();
}

TableView::~TableView() = default;

void TableView::BuildUi() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kGapPx);
  auto* strip = new StatusStrip(this);
  for (const StripEntry& entry : kStrip)
    labels_[static_cast<std::size_t>(entry.label)] = strip->AddValue(entry.objectName, tr(entry.caption));
  column->addWidget(strip);
  list_ = Named(new TableList(behaviour_->Rows(), this), "TabList", tr("Positions of the favourites"));
  column->addWidget(list_, 1);
  column->addLayout(BuildLastLine());
  column->setSizeConstraint(QLayout::SetNoConstraint);
  setMinimumSize(kLeastSize);
  list_->setFocus(Qt::OtherFocusReason);
}

QHBoxLayout* TableView::BuildLastLine() {
  auto* line = new QHBoxLayout;
  line->setSpacing(kGapPx);
  auto* status = Named(new CutLabel(this), "Sstatus", tr("Satellites in range"));
  labels_[static_cast<std::size_t>(TableLabel::kStatus)] = status;
  minimise_ = Named(new SkinButton(tr("&Minimise"), this), "BUTmin", tr("Minimise"));
  exit_ = Named(new SkinButton(tr("E&xit"), this), "BUTexit", tr("Exit"));
  line->addWidget(status, 1);
  line->addWidget(minimise_);
  line->addWidget(exit_);
  return line;
}

void TableView::ConnectSignals() {
  connect(minimise_, &QAbstractButton::clicked, this, [this] { behaviour_->MinimiseClicked(); });
  connect(exit_, &QAbstractButton::clicked, this, [this] { behaviour_->ExitClicked(); });
}

void TableView::ShowNewRows() {
  list_->ShowNewRows();
  const QSize whole(std::max(kLeastSize.width(), list_->WholeWidth() + 2 * kMarginPx), kHeightPx);
  resize(whole.boundedTo(screen()->availableSize()));
}

void TableView::ShowChangedRows() {
  list_->ShowChangedRows();
  if (!property(platform::qt::kFilledProperty).toBool()) setProperty(platform::qt::kFilledProperty, true);
}

void TableView::SetLabel(TableLabel label, const std::string& text) {
  Label(label).ShowText(platform::qt::ToQt(text));
}

/// Escape has no other use here: it lets a long row of announcements end.
void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return StationWindow::keyPressEvent(event);
  platform::RunUntrapped("The end of speaking", [] { platform::StopSpeaking(); });
}

void TableView::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

std::unique_ptr<platform::Window> MakeTableView() {
  return std::make_unique<TableView>(orbit::TheSky());
}

}  // namespace kestrava::views2d::ui
