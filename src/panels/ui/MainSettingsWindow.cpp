#include "MainSettingsWindow.h"

#include <QAccessible>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <filesystem>
#include <utility>

#include "panels/ui/PanelWindows.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Messages.h"
#include "platform/qt/Forms.h"
#include "platform/qt/LaterWindows.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "station/Hub.h"

#include "PanelForm.h"

namespace kestrava::panels::ui {

using platform::RunUntrapped;
using platform::qt::ComboList;
using platform::qt::FromQt;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kMinutesLetters = 6;
constexpr int kGapPx = 8;

template <class Which>
std::size_t PlaceOf(Which which) {
  return static_cast<std::size_t>(which);
}

}  // namespace

MainSettingsWindow::MainSettingsWindow() : StationWindow(kMainSettingsWindow) {
  setWindowTitle(ToQt(kMainSettingsCaption));
  BuildUi();
  ConnectSignals();
}

/// The first call loads: a message of the load stands over the window, and an end that comes meanwhile finds it.
void MainSettingsWindow::Show() {
  StationWindow::Show();
  if (!std::exchange(loaded_, true)) behaviour_.Load();
}

void MainSettingsWindow::BuildUi() {
  QWidget* page = MakePage(*this);
  LayOutPanel(*this, page, {BuildSpeech(page), BuildDisplay(page), BuildTracking(page), BuildRecording(page)});
  checks_[PlaceOf(MainCheck::kSpeech)]->setFocus();
}

QGroupBox* MainSettingsWindow::BuildSpeech(QWidget* page) {
  QGroupBox* section = MakeSection("FrameSpeech", tr("Speech"), page);
  QGridLayout& grid = *MakeGrid(*section);
  AddSpeechLine(grid);
  voice_ = Named(new ComboList(section), "VoiceSelect");
  voice_->SetText(FromQt(tr("No voice chosen")));
  AddField(grid, tr("&Voice Name"), voice_);
  AddSlider(grid, MainSlider::kSpeechSpeed, "peed");
  every_ = MakeMinutes("CBOevery", section);
  AddFieldWithUnit(grid, tr("Make Announcments &every"), every_, tr("Minutes..."),
                   tr("Make Announcments every, in minutes"));
  every_->setToolTip(tr("A rise is announced when the minutes left are a multiple of this number, 1 or more"));
  start_ = MakeMinutes("CBOstart", section);
  AddFieldWithUnit(grid, tr("...&Starting"), start_, tr("Minute(s) Before AOS"), tr("Starting, in minutes before AOS"));
  start_->setToolTip(tr("AOS: the satellite comes above the horizon. No rise is announced earlier than this"));
  editMixer_ = platform::qt::MakeButton("BUTeditMixer", tr("E&dit Sound Settings"),
                                        tr("Opens the sound settings of the desktop: volume and devices"), section);
  grid.addWidget(editMixer_, grid.rowCount(), 1, Qt::AlignLeft);
  return section;
}

/// The tick, a way to try it, and in words whether anything is heard.
void MainSettingsWindow::AddSpeechLine(QGridLayout& grid) {
  QWidget* section = grid.parentWidget();
  const CheckRow& row = MainChecks()[PlaceOf(MainCheck::kSpeech)];
  auto* on = new TickBox(ToQt(row.objectName), WithMnemonic(row.caption, "On"), section);
  checks_[PlaceOf(MainCheck::kSpeech)] = on;
  test_ = platform::qt::MakeButton("BUTtestSpeech", tr("&Test"),
                                   tr("Says a sentence; where none is heard the line beside tells why"), section);
  speech_ = Named(new QLabel(section), "LAspeech", tr("Whether speech is heard"));
  speech_->setTextFormat(Qt::PlainText);
  speech_->setWordWrap(true);
  auto* line = new QHBoxLayout;
  line->setSpacing(2 * kGapPx);
  line->addWidget(on);
  line->addWidget(test_);
  line->addWidget(speech_, 1);
  grid.addLayout(line, grid.rowCount(), 0, 1, 2);
}

/// Any number may be typed, too.
ComboList* MainSettingsWindow::MakeMinutes(const char* name, QWidget* parent) {
  auto* box = Named(new ComboList(parent), name);
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setCompleter(nullptr);
  box->setMinimumContentsLength(kMinutesLetters);
  box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  return box;
}

QGroupBox* MainSettingsWindow::BuildDisplay(QWidget* page) {
  QGroupBox* section = MakeSection("FrameDisplay", tr("Clocks, Units and Look"), page);
  QGridLayout& grid = *MakeGrid(*section);
  QWidget* clocks = BuildClocks(section);
  auto* heading = new QLabel(tr("LED Clocks :"), section);
  heading->setBuddy(clocks_->button(0));
  grid.addWidget(heading, 0, 0);
  grid.addWidget(clocks, 0, 1);
  AddCheck(grid, MainCheck::kMiles, "Miles");
  AddCheck(grid, MainCheck::kSkin, "Kestrava");
  return section;
}

QWidget* MainSettingsWindow::BuildClocks(QWidget* parent) {
  auto* line = new QWidget(parent);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2 * kGapPx);
  clocks_ = new QButtonGroup(this);
  for (const QString& caption : {tr("O&ff"), tr("Loc&al Time"), tr("&UTC/GMT")}) {
    const int index = static_cast<int>(clocks_->buttons().size());
    auto* button = Named(new QRadioButton(caption, line), platform::qt::ArrayName("OPclocks", index),
                         tr("LED Clocks : %1").arg(QString(caption).remove('&')));
    clocks_->addButton(button, index);
    row->addWidget(button);
  }
  row->addStretch(1);
  return line;
}

QGroupBox* MainSettingsWindow::BuildTracking(QWidget* page) {
  QGroupBox* section = MakeSection("FrameTracking", tr("Tracking"), page);
  QGridLayout& grid = *MakeGrid(*section);
  AddCheck(grid, MainCheck::kDde, "g DDE");
  AddCheck(grid, MainCheck::kAutoSelect, "n Range");
  return section;
}

QGroupBox* MainSettingsWindow::BuildRecording(QWidget* page) {
  QGroupBox* section = MakeSection("FrameRecording", tr("Recording"), page);
  QGridLayout& grid = *MakeGrid(*section);
  AddCheck(grid, MainCheck::kRecWxsat, "Weather");
  AddCheck(grid, MainCheck::kRecPrimary, "rimary");
  AddSlider(grid, MainSlider::kMinEl, "inimum");
  sliders_[PlaceOf(MainSlider::kMinEl)]->setToolTip(tr("Passes that stay lower are left out of the pass lists, too"));
  wavFolder_ = Named(new PathField(section), "LAWxWavDir");
  browse_ =
      platform::qt::MakeButton("BUTwxWavDir", tr("&Browse"), tr("Chooses the folder for the recordings"), section);
  for (QWidget* control : {static_cast<QWidget*>(wavFolder_), static_cast<QWidget*>(browse_)})
    platform::qt::EnableByWindow(*control, kRecordingWindow);
  const int row = grid.rowCount();
  grid.addWidget(platform::qt::LabelFor(wavFolder_, tr("Pat&h to save Recorded WAVs"), section), row, 0);
  auto* line = new QHBoxLayout;
  line->setSpacing(kGapPx);
  line->addWidget(wavFolder_, 1);
  line->addWidget(browse_);
  grid.addLayout(line, row, 1);
  return section;
}

void MainSettingsWindow::AddCheck(QGridLayout& grid, MainCheck check, std::string_view mnemonicAt) {
  checks_[PlaceOf(check)] = AddTickBox(grid, MainChecks()[PlaceOf(check)], mnemonicAt);
}

void MainSettingsWindow::AddSlider(QGridLayout& grid, MainSlider slider, std::string_view mnemonicAt) {
  sliders_[PlaceOf(slider)] = AddValueSlider(grid, MainSliders()[PlaceOf(slider)], mnemonicAt);
}

void MainSettingsWindow::ConnectSignals() {
  for (std::size_t i = 0; i < checks_.size(); ++i) {
    const auto check = static_cast<MainCheck>(i);
    connect(checks_[i], &QCheckBox::clicked, this,
            [this, check] { RunUntrapped("The change of a setting", [&] { behaviour_.CheckClicked(check); }); });
  }
  for (std::size_t i = 0; i < sliders_.size(); ++i) {
    const auto slider = static_cast<MainSlider>(i);
    connect(sliders_[i], &ValueSlider::Moved, this, [this, slider] { behaviour_.SliderMoved(slider); });
    connect(sliders_[i], &ValueSlider::Changed, this,
            [this, slider] { RunUntrapped("The change of a setting", [&] { behaviour_.SliderChanged(slider); }); });
  }
  connect(clocks_, &QButtonGroup::idClicked, this, [this](int index) { behaviour_.ClocksClicked(index); });
  connect(voice_, &QComboBox::activated, this,
          [this] { RunUntrapped("The change of the voice", [this] { behaviour_.VoiceClicked(); }); });
  connect(test_, &QAbstractButton::clicked, this,
          [this] { RunUntrapped("The test of the voice", [this] { behaviour_.TestClicked(); }); });
  connect(browse_, &QAbstractButton::clicked, this,
          [this] { RunUntrapped("The choice of a folder", [this] { behaviour_.WavDirClicked(); }); });
  connect(editMixer_, &QAbstractButton::clicked, this,
          [this] { RunUntrapped("The opening of the sound settings", [this] { behaviour_.EditMixerClicked(); }); });
}

void MainSettingsWindow::OnUnload() {
  if (loaded_) behaviour_.Unload();  // one that was never seen has nothing to store
  StationWindow::OnUnload();
}

void MainSettingsWindow::SetClocks(int index) {
  QAbstractButton* button = clocks_->button(index);
  if (button == nullptr) throw platform::Fault::SubscriptOutOfRange();
  button->setChecked(true);
  // Tab is to lead to the chosen one: the toolkit sees to that only from the first click on.
  for (QAbstractButton* each : clocks_->buttons())
    each->setFocusPolicy(each == button ? Qt::StrongFocus : Qt::ClickFocus);
}

void MainSettingsWindow::changeEvent(QEvent* event) {
  StationWindow::changeEvent(event);
  const bool newLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
  if (newLook && speech_) MarkAsWarning(*speech_, speechTrouble_);
}

void MainSettingsWindow::ShowSpeech(std::string_view text, bool trouble) {
  const QString words = ToQt(text);
  if (speech_->text() == words) return;
  speechTrouble_ = trouble;
  MarkAsWarning(*speech_, trouble);
  speech_->setText(words);
  QAccessibleEvent told(speech_, QAccessible::Alert);
  if (trouble) QAccessible::updateAccessibility(&told);
}

std::string MainSettingsWindow::WavFolder() const {
  return FromQt(wavFolder_->text());
}

void MainSettingsWindow::SetWavFolder(std::string_view folder) {
  wavFolder_->SetPath(ToQt(folder));
}

std::optional<std::string> MainSettingsWindow::ChooseSaveFile(std::string_view fileName) {
  std::filesystem::path folder(WavFolder());
  if (!platform::TheFiles().FolderExists(folder)) folder = platform::AppDir;
  const auto file = platform::TheFileChooser().ChooseSaveFile("Path to save Recorded WAVs", folder / fileName);
  if (!file) return std::nullopt;
  return file->string();
}

void MainSettingsWindow::ApplySkinToAll() {
  platform::qt::ApplyThemeFromSettings();  // windows take their skin with the theme
}

void MainSettingsWindow::RefreshLauncher() {
  station::TheHub().Refresh();
}

std::unique_ptr<platform::Window> MakeMainSettingsWindow() {
  return std::make_unique<MainSettingsWindow>();
}

}  // namespace kestrava::panels::ui
