#include "PassPredictionWindow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "platform/Doors.h"
#include "platform/Messages.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Widgets.h"
#include "predict/ui/PassWindows.h"

namespace kestrava::predict::ui {

using platform::qt::ColourDefaultButton;
using platform::qt::ComboList;
using platform::qt::FromQt;
using platform::qt::Named;
using platform::qt::SetHint;
using platform::qt::SkinButton;
using platform::qt::ToQt;

namespace {

constexpr int kWidthPx = 900;
constexpr int kHeightPx = 600;
constexpr int kMarginPx = 10;
constexpr int kGapPx = 8;
constexpr double kShowEveryMs = 50;

constexpr const char* kPrintTitle = "Kestrava - Satellite Pass Predictions";
constexpr const char* kWelcome = "Choose a day and a satellite, then Calculate.";

}  // namespace

PassPredictionWindow::PassPredictionWindow(const orbit::Sky& sky) : StationWindow(kPassWindow) {
  behaviour_ = std::make_unique<PassPrediction>(sky, *this);
  setWindowTitle(ToQt(kPassCaption));
  BuildUi();
  ConnectSignals();
  behaviour_->Load();
}

PassPredictionWindow::~PassPredictionWindow() = default;

void PassPredictionWindow::BuildUi() {
  instant_ = new InstantSection(this);
  presets_ = new PresetSection(this);
  results_ = new ResultSection(behaviour_->Table(), this);
  ShowStatus(kWelcome);
  auto* above = new QHBoxLayout;
  above->setSpacing(kGapPx);
  above->addWidget(instant_, 3);
  above->addWidget(presets_, 2);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kGapPx);
  column->addLayout(above);
  column->addWidget(results_, 1);
  BuildFoot(*column);
  resize(kWidthPx, kHeightPx);
  UpdateJobButtons();
  instant_->groupname->setFocus();
}

void PassPredictionWindow::BuildFoot(QVBoxLayout& column) {
  min_ = Named(new SkinButton(tr("&Minimise"), this), "BUTmin", tr("Minimise"));
  exit_ = Named(new SkinButton(tr("E&xit"), this), "BUTexit", tr("Exit"));
  exit_->setToolTip(tr("Closes the window; the list is lost"));
  auto* foot = new QHBoxLayout;
  foot->addStretch(1);
  foot->addWidget(min_);
  foot->addWidget(exit_);
  column.addLayout(foot);
}

/// A group counts when it is chosen or left, a satellite when it is chosen: who goes on by the Tab key is where he
/// wants to be.
void PassPredictionWindow::ConnectChoices() {
  for (const auto chosen : {&ComboList::Chosen, &ComboList::LeftAt}) {
    connect(instant_->groupname, chosen, this, [this] {
      presets_->stop->setEnabled(true);  // the reading yields
      Run("The listing of the group", &PassPrediction::GroupnameClicked);
    });
  }
  connect(instant_->satelliteName, &ComboList::Chosen, this,
          [this] { Run("The choice of a satellite", &PassPrediction::SatelliteNameClicked); });
  for (auto* combo : {instant_->groupname, instant_->favouriteName}) {
    connect(combo, &QComboBox::currentIndexChanged, this, [this] { UpdateHints(); });
  }
  connect(presets_->presets, &QListWidget::itemSelectionChanged, this, [this] { UpdateHints(); });
}

void PassPredictionWindow::ConnectSignals() {
  ConnectChoices();
  for (const auto picked : {&QCalendarWidget::clicked, &QCalendarWidget::activated}) {
    connect(instant_->calendar, picked, this, [this] { Run("The choice of a day", &PassPrediction::CalendarPicked); });
  }
  OnClick(instant_->calc, "The prediction", &PassPrediction::CalcClicked);
  OnClick(instant_->again, "The prediction", &PassPrediction::AgainClicked);
  OnClick(results_->sortChron, "The sorting", &PassPrediction::SortChronClicked);
  OnClick(results_->clearResults, "The clearing of the list", &PassPrediction::ClearResultsClicked);
  OnClick(results_->saveResults, "The saving of the predictions", &PassPrediction::SaveResultsClicked);
  OnClick(results_->print, "The print", &PassPrediction::PrintClicked);
  OnClick(min_, "The minimising", &PassPrediction::MinClicked);
  OnClick(exit_, "The closing", &PassPrediction::ExitClicked);
  ConnectPresets();
}

void PassPredictionWindow::ConnectPresets() {
  OnClick(presets_->go, "The job", &PassPrediction::PresetGoClicked);
  OnClick(presets_->add, "The opening of the job wizard", &PassPrediction::PresetAddClicked);
  OnClick(presets_->edit, "The editing of a job", &PassPrediction::EditJobClicked);
  OnClick(presets_->remove, "The deletion of a job", &PassPrediction::PresetDeleteClicked);
  OnClick(presets_->stop, "The stop", &PassPrediction::StopClicked);
}

void PassPredictionWindow::OnClick(QAbstractButton* button, const char* what, Deed deed) {
  connect(button, &QAbstractButton::clicked, this, [this, what, deed] { Run(what, deed); });
}

void PassPredictionWindow::Run(const char* what, Deed deed) {
  platform::RunUntrapped(what, [&] { (*behaviour_.*deed)(); });
  UpdateJobButtons();
}

/// Stop is there only while it has something to stop, Go only while no job runs. The focus waits beside Go, where no
/// second press of a key does anything to the job.
void PassPredictionWindow::UpdateJobButtons() {
  UpdateHints();
  presets_->stop->setEnabled(behaviour_->IsWorking());
  const bool runs = behaviour_->JobRuns();
  if (runs && presets_->go->hasFocus()) {
    presets_->presets->setFocus();
    focusWaitsForGo_ = true;
  }
  presets_->go->setEnabled(!runs);
  if (runs || !focusWaitsForGo_) return;
  focusWaitsForGo_ = false;
  if (presets_->presets->hasFocus()) presets_->go->setFocus();
}

/// The buttons work with nothing to act on too, and a message or an empty file follows: what is missing is said before.
void PassPredictionWindow::UpdateHints() {
  const bool nothingChosen = instant_->groupname->currentIndex() < 0 && instant_->favouriteName->currentIndex() < 0;
  SetHint(*instant_->calc, tr("Adds the passes of the chosen day to the list (Return)"),
          nothingChosen ? tr("Choose a satellite first") : QString());
  const std::string& last = behaviour_->LastSatellite();
  instant_->again->setEnabled(!last.empty());
  SetHint(*instant_->again,
          last.empty() ? tr("Takes the last satellite for another day")
                       : tr("Takes %1 once more, for the day that is chosen now").arg(ToQt(last)),
          last.empty() ? tr("Nothing has been worked out yet") : QString());
  const QString noJob = presets_->presets->Selected() < 0 ? tr("Select a job first") : QString();
  SetHint(*presets_->go, tr("Runs the selected job from the day of the calendar on"), noJob);
  SetHint(*presets_->edit, tr("Takes the selected job into the wizard"), noJob);
  SetHint(*presets_->remove, tr("Deletes the selected job, without asking"), noJob);
  const int rows = behaviour_->Table().RowCount();
  const QString noRows = rows == 0 ? tr("The list is empty") : QString();
  SetHint(*results_->sortChron, tr("Sorts the passes by their start"),
          rows == 1 ? tr("There is one pass only") : noRows);
  SetHint(*results_->clearResults, tr("Takes all passes off the list, without asking"), noRows);
  SetHint(*results_->saveResults, tr("Saves the list as a text file"), noRows);
  SetHint(*results_->print, tr("Prints the list"), noRows);
}

void PassPredictionWindow::changeEvent(QEvent* event) {
  StationWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || !instant_) return;
  ColourCalendar(*instant_->calendar);
  ColourDefaultButton(*instant_->calc);
}

/// Return, where no control has a use of its own for it, calculates; Escape stops what runs.
void PassPredictionWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !event->isAutoRepeat()) return instant_->calc->click();
  if (event->key() == Qt::Key_Escape && behaviour_->IsWorking()) return presets_->stop->click();
  StationWindow::keyPressEvent(event);
}

void PassPredictionWindow::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

CalendarDay PassPredictionWindow::Calendar() const {
  const QDate day = instant_->calendar->selectedDate();
  return {static_cast<std::int16_t>(day.day()), static_cast<std::int16_t>(day.month()),
          static_cast<std::int16_t>(day.year())};
}

void PassPredictionWindow::SetCalendar(const CalendarDay& today) {
  instant_->calendar->setSelectedDate(QDate(today.year, today.month, today.day));
}

/// While a job runs the window is brought up to date now and then, not at each of its thousand calculations.
bool PassPredictionWindow::IsTooSoon() {
  const double nowMs = platform::TheStopwatch().ElapsedMs();
  if (lastShownMs_ >= 0 && nowMs - lastShownMs_ < kShowEveryMs) return true;
  lastShownMs_ = nowMs;
  return false;
}

void PassPredictionWindow::RowsChanged() {
  const bool lost = behaviour_->Table().RowCount() < results_->passes->ShownRows();
  if (workShown_ && !lost && IsTooSoon()) return;
  results_->passes->ShowRows();
}

void PassPredictionWindow::ShowSorting(int value, int maximum) {
  UpdateJobButtons();
  results_->sorting->setRange(0, maximum);
  results_->sorting->setValue(value);
}

void PassPredictionWindow::ShowWork(int done, int total) {
  const bool begins = total > 0 && !workShown_;
  const bool ends = total == 0;
  workShown_ = !ends;
  UpdateJobButtons();
  if (ends) {
    presets_->work->reset();
    results_->passes->ShowRows();
    return;
  }
  if (begins) lastShownMs_ = -1;
  presets_->work->setRange(0, total);
  presets_->work->setValue(done);
}

void PassPredictionWindow::ShowStatus(std::string_view text) {
  results_->status->setText(ToQt(text));
}

std::optional<std::filesystem::path> PassPredictionWindow::ChooseSaveFile(std::string_view title,
                                                                          std::string_view fileName) {
  return platform::TheFileChooser().ChooseSaveFile(title, CurrentFolder() / fileName);
}

std::filesystem::path PassPredictionWindow::CurrentFolder() const {
  return platform::TheFileChooser().DocumentsFolder();
}

bool PassPredictionWindow::OpenPrinterDialog() {
  return platform::ThePrinting().OpenDialog(kPrintTitle);
}

bool PassPredictionWindow::Print(const PrintedText& document, std::string_view font) {
  platform::PrintDocument printed{kPrintTitle, std::string(font), {}};
  for (const PrintedPiece& line : document.Lines()) printed.lines.push_back({line.text, line.bold, line.colour});
  return platform::ThePrinting().Print(printed);
}

std::unique_ptr<platform::Window> MakePassPredictionWindow() {
  return std::make_unique<PassPredictionWindow>(orbit::TheSky());
}

}  // namespace kestrava::predict::ui
