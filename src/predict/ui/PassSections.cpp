#include "PassSections.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include "platform/qt/Forms.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::predict::ui {

using platform::qt::ColourDefaultButton;
using platform::qt::ComboList;
using platform::qt::EmboldenTitle;
using platform::qt::LabelFor;
using platform::qt::MakeButton;
using platform::qt::Named;
using platform::qt::SkinButton;
using platform::qt::ToQt;

namespace {

constexpr int kGapPx = 6;
constexpr int kCalendarWidthPx = 252;
constexpr int kCalendarHeightPx = 176;
constexpr int kInstantWidthPx = 640;
constexpr int kListWidthPx = 150;
constexpr int kListHeightPx = 60;
constexpr int kPassesHeightPx = 110;
constexpr int kBarWidthPx = 150;

/// A calendar that marks its day while it has the keyboard, and in which the days of other months, which can be chosen
/// too, can be read.
class DayCalendar : public QCalendarWidget {
 public:
  using QCalendarWidget::QCalendarWidget;

 protected:
  void paintCell(QPainter* painter, const QRect& cell, QDate date) const override {
    date.month() == monthShown() ? QCalendarWidget::paintCell(painter, cell, date) : PaintQuiet(*painter, cell, date);
    const QWidget* focus = QApplication::focusWidget();
    if (date != selectedDate() || !focus || !isAncestorOf(focus)) return;
    QStyleOptionFocusRect mark;
    mark.initFrom(this);
    mark.rect = cell;
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &mark, painter, this);
  }

 private:
  void PaintQuiet(QPainter& painter, const QRect& cell, QDate date) const {
    painter.fillRect(cell, palette().color(QPalette::Base));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(cell, Qt::AlignCenter, QString::number(date.day()));
  }
};

QProgressBar* Bar(const char* name, const QString& accessibleName, QWidget* parent) {
  auto* bar = Named(new QProgressBar(parent), name, accessibleName);
  bar->setRange(0, 1);
  bar->reset();
  bar->setFormat("%p %");
  bar->setAlignment(Qt::AlignCenter);
  return bar;
}

}  // namespace

InstantSection::InstantSection(QWidget* parent) : QGroupBox(tr("Instant Prediction"), parent) {
  setObjectName("Frame1");
  setMaximumWidth(kInstantWidthPx);
  BuildCalendar();
  auto* column = new QVBoxLayout;
  column->setSpacing(kGapPx);
  BuildChoices(*column);
  auto* row = new QHBoxLayout(this);
  row->setSpacing(2 * kGapPx);
  row->addWidget(calendar);
  row->addLayout(column, 1);
  EmboldenTitle(*this);
}

void InstantSection::BuildCalendar() {
  calendar = Named(new DayCalendar(this), "Calendar", tr("Day of the predictions"));
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setHorizontalHeaderFormat(QCalendarWidget::ShortDayNames);
  calendar->setGridVisible(false);
  calendar->setFixedWidth(kCalendarWidthPx);
  calendar->setMinimumHeight(kCalendarHeightPx);
  // The toolkit leaves its two arrows without a word.
  if (auto* arrow = calendar->findChild<QWidget*>("qt_calendar_prevmonth"))
    arrow->setAccessibleName(tr("Month before"));
  if (auto* arrow = calendar->findChild<QWidget*>("qt_calendar_nextmonth")) arrow->setAccessibleName(tr("Month after"));
  ColourCalendar(*calendar);
}

void InstantSection::BuildChoices(QVBoxLayout& column) {
  groupname = Named(new ComboList(this), "Groupname");
  satelliteName = Named(new ComboList(this), "SatelliteName", tr("Satellite of the group"));
  favouriteName = Named(new ComboList(this), "FavouriteName");
  visOnly = Named(new QCheckBox(tr("Visible Passes &Only"), this), "CHvisOnly", tr("Visible Passes Only"));
  visOnly->setToolTip(tr("List only passes that can be seen by eye: the satellite in sunlight, you in twilight"));
  calc = MakeButton("BUTcalc", tr("Ca&lculate"), tr("Adds the passes of the chosen day to the list (Return)"), this);
  again = MakeButton("BUTagain", tr("Aga&in"), "", this);
  ColourDefaultButton(*calc);
  column.addWidget(LabelFor(groupname, tr("Select &A Satellite..."), this));
  column.addWidget(groupname);
  column.addWidget(satelliteName);
  column.addWidget(LabelFor(favouriteName, tr("...Or Select a &Favourite"), this));
  column.addWidget(favouriteName);
  column.addWidget(visOnly);
  column.addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGapPx);
  buttons->addWidget(calc, 2);
  buttons->addWidget(again, 1);
  column.addLayout(buttons);
}

PresetSection::PresetSection(QWidget* parent) : QGroupBox(tr("Preset Predictions"), parent) {
  setObjectName("Frame2");
  presets = Named(new platform::qt::ListBox(this), "ListPresets", tr("Saved jobs"));
  presets->SetHint(tr("No jobs yet. \"New...\" makes one: several satellites, several days."));
  presets->setMinimumSize(kListWidthPx, kListHeightPx);
  go = MakeButton("PresetGo", tr("&Go"), tr("Runs the selected job from the day of the calendar on"), this);
  add = MakeButton("PresetAdd", tr("&New..."), tr("Makes a job"), this);
  edit = MakeButton("BUTeditjob", tr("&Edit..."), tr("Takes the selected job into the wizard"), this);
  remove = MakeButton("PresetDelete", tr("&Delete"), tr("Deletes the selected job, without asking"), this);
  stop = MakeButton("BUTstop", tr("S&top"),
                    tr("Ends the job or the sorting that runs, or the reading of a group (Escape)"), this);
  work = Bar("PROjob", tr("Progress of the job"), this);
  auto* buttons = new QVBoxLayout;
  buttons->setSpacing(kGapPx);
  for (SkinButton* button : {go, add, edit, remove}) buttons->addWidget(button);
  buttons->addStretch(1);
  auto* above = new QHBoxLayout;
  above->addWidget(presets, 1);
  above->addLayout(buttons);
  auto* below = new QHBoxLayout;
  below->addWidget(work, 1);
  below->addWidget(stop);
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kGapPx);
  column->addLayout(above, 1);
  column->addLayout(below);
  EmboldenTitle(*this);
}

ResultSection::ResultSection(const PassTable& table, QWidget* parent) : QGroupBox(tr("Results"), parent) {
  setObjectName("Frame3");
  passes = Named(new PassList(table, this), "LISTpasses", tr("Passes"));
  passes->setMinimumHeight(kPassesHeightPx);
  status = Named(new QLabel(this), "IPstatus", tr("Status"));
  status->setWordWrap(true);
  status->setTextFormat(Qt::PlainText);
  sortChron = MakeButton("BUTsortChron", tr("&Sort by Time"), tr("Sorts the passes by their start"), this);
  sorting = Bar("PROsorting", tr("Progress of the sorting"), this);
  sorting->setFixedWidth(kBarWidthPx);
  clearResults = MakeButton("BUTclearResults", tr("&Clear"), tr("Takes all passes off the list, without asking"), this);
  saveResults = MakeButton("BUTsaveresults", tr("Sa&ve..."), tr("Saves the list as a text file"), this);
  print = MakeButton("BUTprint", tr("&Print..."), tr("Prints the list"), this);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGapPx);
  buttons->addWidget(sortChron);
  buttons->addWidget(sorting);
  buttons->addStretch(1);
  for (SkinButton* button : {clearResults, saveResults, print}) buttons->addWidget(button);
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kGapPx);
  column->addWidget(passes, 1);
  column->addWidget(status);
  column->addLayout(buttons);
  EmboldenTitle(*this);
}

/// The toolkit writes weekends in a red that does not read on dark ground.
void ColourCalendar(QCalendarWidget& calendar) {
  QTextCharFormat plain;
  plain.setForeground(QApplication::palette().color(QPalette::Text));
  QTextCharFormat weekend = plain;
  if (platform::qt::SkinIsOn()) weekend.setForeground(platform::qt::Tones().accent);
  for (int day = Qt::Monday; day <= Qt::Sunday; ++day) {
    calendar.setWeekdayTextFormat(static_cast<Qt::DayOfWeek>(day), day >= Qt::Saturday ? weekend : plain);
  }
}

}  // namespace kestrava::predict::ui
