#include "InfoPane.h"

#include <QHeaderView>

#include "platform/qt/Fonts.h"
#include "views2d/MapWindow.h"

namespace kestrava::views2d::ui {

using platform::qt::SkinButton;

namespace {

constexpr int kContentWidth = kPaneWidthPx - kExpandWidthPx;
constexpr int kRightMargin = 4;
constexpr int kInnerWidth = kContentWidth - kRightMargin;
constexpr int kTextIndent = 3;
constexpr int kLineHeight = 12;
constexpr int kHeadingHeight = 13;
constexpr int kButtonHeight = 19;
constexpr int kSliderHeight = 17;
constexpr int kEtaDotColumn = 8;
constexpr int kEtaTimeMargin = 10;

/// What an info line does not say by itself; empty where it does.
const char* SenseOf(int index) {
  switch (index) {
    case 7:
      return "AOS: the local time at which it rises over the horizon.";
    case 8:
      return "Mean anomaly: how far it has come in its orbit since its lowest point, of 360 degrees.";
    case 9:
      return "How many times it has gone round the Earth since its launch, as its elements count.";
    case 10:
      return "The day of the year in Universal Time with its fraction, as element sets count it: 1.5 is noon of 1 "
             "January.\nIn time warp only its hour and minute are those of the warp clock.";
    case 17:
      return "The same as MA on a scale of 0 to 255.";
    default:
      return "";
  }
}

/// The pane's small face: narrow, so that the longest line fits.
QFont PaneFont(bool bold = false) {
  return platform::qt::FontByName("Small fonts", 8, bold);
}

}  // namespace

InfoPane::InfoPane(QWidget* parent) : QWidget(parent) {
  setObjectName("InfoPane");
  setFixedWidth(kContentWidth);
  BuildTimeControls();
  BuildInfoLines();
  BuildDataArea();
}

void InfoPane::BuildTimeControls() {
  AddHeading(0, "Time Tracking Mode");
  AddPair(time_, "BUTtime", "Realtime", "TimeWarp");
  sliderWarp_ = new QSlider(Qt::Horizontal, this);
  sliderWarp_->setObjectName("SliderWarp");
  sliderWarp_->setAccessibleName(tr("Warp speed, seconds per tick"));
  connect(sliderWarp_, &QSlider::valueChanged, this, [this] { TellWarpSpeed(); });
  sliderWarp_->setRange(1, 60);
  sliderWarp_->setSingleStep(1);
  sliderWarp_->setPageStep(5);
  sliderWarp_->setValue(2);
  TellWarpSpeed();
  sliderWarp_->setGeometry(0, nextTop_, kInnerWidth, kSliderHeight);
  nextTop_ += kSliderHeight;
}

void InfoPane::TellWarpSpeed() {
  sliderWarp_->setToolTip(tr("Time warp: %1 s are added at each tick").arg(sliderWarp_->value()));
}

// The order of reading: the satellite, then the Moon, then the Sun. The fourth heading repeats the third in its place
// and is not shown twice.
void InfoPane::BuildInfoLines() {
  for (const int index : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 17, 10}) AddLine(index);
  AddHeading(1, "Moon's Information");
  for (const int index : {13, 14, 15, 16}) AddLine(index);
  QLabel* sun = AddHeading(2, "Sun's Information");
  QLabel* repeated = AddHeading(3, "Sun's Information");
  repeated->setGeometry(sun->geometry());
  repeated->hide();
  nextTop_ -= kHeadingHeight;
  for (const int index : {11, 12}) AddLine(index);
}

void InfoPane::BuildDataArea() {
  nextTop_ += 2;
  AddPair(infoMode_, "BUTimode", "Info Mode", "ETA mode");
  dataText_ = new QPlainTextEdit(this);
  dataText_->setObjectName("IPtext");
  dataText_->setAccessibleName(tr("Satellite data"));
  dataText_->setReadOnly(true);
  dataText_->setTabChangesFocus(true);
  dataText_->setFont(PaneFont());
  dataText_->setPlainText("No Information available\r\n");
  quickEta_ = new platform::qt::ListWidget({"dot", "Satellite", "AOS", "LOS"}, this);
  quickEta_->setObjectName("lstQuickETA");
  quickEta_->setAccessibleName(tr("Next satellites in range"));
  FitEtaColumns();
  quickEta_->hide();
  for (const char* name : {"AZ", "EL"}) {
    auto* idle = new QLabel(this);
    idle->setObjectName(name);
    idle->setAccessibleName(name);
    idle->hide();
  }
}

/// Times as narrow as they can be, so that a whole name of 14 capitals stands beside them.
void InfoPane::FitEtaColumns() {
  quickEta_->setFont(PaneFont());
  const int times = QFontMetrics(PaneFont(true)).horizontalAdvance("00:00") + kEtaTimeMargin;
  quickEta_->header()->resizeSection(0, kEtaDotColumn);
  for (const int column : {2, 3}) quickEta_->header()->resizeSection(column, times);
}

QLabel* InfoPane::AddHeading(int index, const char* text) {
  auto* heading = new QLabel(text, this);
  heading->setObjectName(platform::qt::ArrayName("InfoPaneLabels", index));
  heading->setProperty("heading", true);
  heading->setFont(PaneFont(true));
  heading->setIndent(kTextIndent);
  heading->setGeometry(0, nextTop_, kContentWidth, kHeadingHeight);
  nextTop_ += kHeadingHeight;
  return heading;
}

void InfoPane::AddLine(int index) {
  auto* line = new QLabel(this);
  line->setObjectName(platform::qt::ArrayName("RemoteStat", index));
  line->setTextFormat(Qt::PlainText);
  line->setFont(PaneFont());
  line->setIndent(kTextIndent);
  line->setGeometry(0, nextTop_, kContentWidth, kLineHeight);
  nextTop_ += kLineHeight;
  remoteStat_[static_cast<std::size_t>(index)] = line;
}

void InfoPane::AddPair(std::array<SkinButton*, 2>& pair, const char* name, const char* left, const char* right) {
  constexpr int kWidth = kInnerWidth / 2;
  for (int i = 0; i < 2; ++i) {
    auto* button = new SkinButton(i == 0 ? left : right, this);
    button->setObjectName(platform::qt::ArrayName(name, i));
    button->setAccessibleName(i == 0 ? left : right);
    button->SetBackColour(i == 0 ? kLitButton : kDarkButton);
    button->setFont(PaneFont());
    button->setGeometry(i * kWidth, nextTop_, kWidth, kButtonHeight);
    pair[static_cast<std::size_t>(i)] = button;
  }
  nextTop_ += kButtonHeight;
}

void InfoPane::ShowLine(int index, const QString& text) {
  const QString sense = tr(SenseOf(index));
  RemoteStat(index).setText(text);
  RemoteStat(index).setToolTip(sense.isEmpty() ? text : text + '\n' + sense);
}

void InfoPane::SetTextHeight(int px) {
  const QRect area(0, nextTop_ + 2, kInnerWidth, px);
  dataText_->setGeometry(area);
  quickEta_->setGeometry(area);
}

}  // namespace kestrava::views2d::ui
