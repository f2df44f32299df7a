#include "PassWizardWindow.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QScrollArea>

#include "platform/Doors.h"
#include "platform/Messages.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Widgets.h"
#include "predict/PassPrediction.h"
#include "predict/ui/PassWindows.h"

namespace kestrava::predict::ui {

using platform::qt::ColourDefaultButton;
using platform::qt::ComboList;
using platform::qt::EmboldenTitle;
using platform::qt::FromQt;
using platform::qt::LabelFor;
using platform::qt::MakeButton;
using platform::qt::Named;
using platform::qt::SetHint;
using platform::qt::ToQt;

namespace {

constexpr int kWidthPx = 760;
constexpr int kHeightPx = 470;
constexpr int kMarginPx = 10;
constexpr int kGapPx = 6;
constexpr int kDaysWidthPx = 70;
constexpr int kListHeightPx = 70;
constexpr int kHelpWidthPx = 200;

void AddLabelled(QGridLayout& grid, int row, const QString& text, QWidget* control) {
  grid.addWidget(LabelFor(control, text, control->parentWidget()), row, 0);
  grid.addWidget(control, row, 1);
}

}  // namespace

PassWizardWindow::PassWizardWindow(const orbit::Tables& tables) : StationWindow(kWizardWindow) {
  behaviour_ = std::make_unique<PassWizard>(tables, *this);
  setWindowTitle(ToQt(kWizardCaption));
  BuildUi();
  ConnectSignals();
  behaviour_->Load();
}

PassWizardWindow::~PassWizardWindow() = default;

void PassWizardWindow::BuildUi() {
  auto* form = new QVBoxLayout;
  form->setSpacing(kGapPx);
  BuildJob(*form);
  BuildSatellites(*form);
  auto* above = new QHBoxLayout;
  above->setSpacing(2 * kGapPx);
  above->addLayout(form, 3);
  above->addWidget(BuildHelp(), 2);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->addLayout(above, 1);
  column->addWidget(BuildFoot());
  for (QWidget* before = satname_; QWidget * next : {static_cast<QWidget*>(add_), static_cast<QWidget*>(satList_),
                                                     static_cast<QWidget*>(remove_)}) {
    setTabOrder(before, next);
    before = next;
  }
  resize(kWidthPx, kHeightPx);
  name_->setFocus();
}

void PassWizardWindow::BuildJob(QVBoxLayout& column) {
  auto* box = Named(new QGroupBox(tr("Job"), this), "Frame1");
  name_ = Named(new QLineEdit(box), "Tname");
  days_ = Named(new QLineEdit(box), "Tnumofdays");
  days_->setMaximumWidth(kDaysWidthPx);
  days_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,5}"), days_));
  save_ = Named(new QCheckBox(tr("Save Predictions to &File"), box), "CHsave", tr("Save Predictions to File"));
  print_ = Named(new QCheckBox(tr("&Print Predictions"), box), "CHprint", tr("Print Predictions"));
  auto* grid = new QGridLayout(box);
  grid->setColumnStretch(1, 1);
  AddLabelled(*grid, 0, tr("&Name of Job"), name_);
  AddLabelled(*grid, 1, tr("Number of &Days"), days_);
  grid->addWidget(save_, 2, 1);
  grid->addWidget(print_, 3, 1);
  EmboldenTitle(*box);
  column.addWidget(box);
}

void PassWizardWindow::BuildSatellites(QVBoxLayout& column) {
  auto* box = Named(new QGroupBox(tr("Satellites"), this), "Frame2");
  group_ = Named(new ComboList(box), "COMgroup");
  satname_ = Named(new ComboList(box), "COMsatname");
  satList_ = Named(new platform::qt::ListBox(box), "SatList");
  satList_->SetHint(tr("None chosen yet"));
  satList_->setMinimumHeight(kListHeightPx);
  add_ = MakeButton("BUTadd", tr("&Add"), tr("Adds the chosen satellite to the list"), this);
  remove_ = MakeButton("BUTremove", tr("&Remove"), tr("Takes the selected satellite off the list"), this);
  auto* grid = new QGridLayout(box);
  grid->setColumnStretch(1, 1);
  AddLabelled(*grid, 0, tr("&Group Name"), group_);
  AddLabelled(*grid, 1, tr("&Satellite Name"), satname_);
  AddLabelled(*grid, 2, tr("&List of Satellites"), satList_);
  grid->addWidget(add_, 1, 2);
  grid->addWidget(remove_, 2, 2, Qt::AlignTop);
  grid->setRowStretch(2, 1);
  grid->itemAtPosition(2, 0)->setAlignment(Qt::AlignTop);
  EmboldenTitle(*box);
  column.addWidget(box, 1);
}

QWidget* PassWizardWindow::BuildHelp() {
  auto* frame = Named(new QGroupBox(ToQt(kWizardHelpCaption), this), "Frame5");
  auto* text = Named(new QLabel(ToQt(kWizardHelp), frame), "Label22");
  text->setWordWrap(true);
  text->setTextFormat(Qt::PlainText);
  text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  auto* area = Named(new QScrollArea(frame), "helpArea", ToQt(kWizardHelpCaption));
  area->setWidget(text);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setMinimumWidth(kHelpWidthPx);
  area->viewport()->setAutoFillBackground(false);
  text->setAutoFillBackground(false);
  (new QVBoxLayout(frame))->addWidget(area);
  EmboldenTitle(*frame);
  return frame;
}

QWidget* PassWizardWindow::BuildFoot() {
  auto* foot = new QWidget(this);
  saveJob_ = MakeButton("BUTSaveJob", tr("Save &this Job"), tr("Adds the job to the list of presets (Return)"), this);
  cancel_ = MakeButton("BUTcancel", tr("&Cancel"), tr("Closes the wizard; what stands here is lost (Escape)"), this);
  ColourDefaultButton(*saveJob_);
  warning_ = Named(new QLabel(foot), "LABwarning", tr("What is odd about the job"));
  warning_->setWordWrap(true);
  warning_->setTextFormat(Qt::PlainText);
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(warning_, 1);
  row->addWidget(saveJob_);
  row->addWidget(cancel_);
  return foot;
}

void PassWizardWindow::ConnectSignals() {
  for (const auto chosen : {&ComboList::Chosen, &ComboList::LeftAt}) {
    connect(group_, chosen, this,
            [this] { platform::RunUntrapped("The listing of the group", [this] { behaviour_->GroupClicked(); }); });
  }
  connect(name_, &QLineEdit::textChanged, this, [this] { UpdateHints(); });
  connect(days_, &QLineEdit::textChanged, this, [this] { behaviour_->FormChanged(); });
  connect(group_, &QComboBox::currentIndexChanged, this, [this] { UpdateHints(); });
  connect(satList_, &QListWidget::itemSelectionChanged, this, [this] { UpdateHints(); });
  OnClick(add_, "The choice of a satellite", &PassWizard::AddClicked);
  OnClick(remove_, "The removal of a satellite", &PassWizard::RemoveClicked);
  OnClick(saveJob_, "The saving of the job", &PassWizard::SaveJobClicked);
  OnClick(cancel_, "The closing", &PassWizard::CancelClicked);
}

/// The buttons work with something missing too, and a message follows: what it is is said before.
void PassWizardWindow::UpdateHints() {
  SetHint(*add_, tr("Adds the chosen satellite to the list"),
          group_->currentIndex() < 0 ? tr("Choose a group first") : QString());
  SetHint(*remove_, tr("Takes the selected satellite off the list"),
          satList_->Selected() < 0 ? tr("Select a satellite on the list first") : QString());
  QStringList missing;
  if (name_->text().trimmed().isEmpty()) missing << tr("the name");
  if (days_->text().trimmed().isEmpty()) missing << tr("the number of days");
  if (satList_->Count() == 0) missing << tr("a satellite");
  SetHint(*saveJob_, tr("Adds the job to the list of presets (Return)"),
          missing.isEmpty() ? QString() : tr("Still missing: %1").arg(missing.join(", ")));
}

void PassWizardWindow::ShowWarning(std::string_view text) {
  warning_->setText(ToQt(text));
  UpdateHints();
}

void PassWizardWindow::OnClick(QAbstractButton* button, const char* what, Deed deed) {
  connect(button, &QAbstractButton::clicked, this,
          [this, what, deed] { platform::RunUntrapped(what, [&] { (*behaviour_.*deed)(); }); });
}

void PassWizardWindow::changeEvent(QEvent* event) {
  StationWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && saveJob_) ColourDefaultButton(*saveJob_);
}

void PassWizardWindow::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && !event->isAutoRepeat()) return saveJob_->click();
  if (event->key() == Qt::Key_Escape) return cancel_->click();
  StationWindow::keyPressEvent(event);
}

void PassWizardWindow::OnUnload() {
  behaviour_->Unload();
  StationWindow::OnUnload();
}

void PassWizardWindow::PlaceByPassWindow(int offsetTwips) {
  const auto* passes = dynamic_cast<StationWindow*>(platform::TheWindows().Find(kPassWindow));
  if (!passes) return;
  const platform::qt::TwipsPlace own = Place();
  const platform::qt::TwipsPlace place = passes->Place();
  SetPlace({place.left + offsetTwips, place.top + offsetTwips, own.width, own.height});
}

std::string PassWizardWindow::Tname() const {
  return FromQt(name_->text());
}

void PassWizardWindow::SetTname(std::string_view name) {
  name_->setText(ToQt(name));
}

std::string PassWizardWindow::Tnumofdays() const {
  return FromQt(days_->text());
}

void PassWizardWindow::SetTnumofdays(std::string_view days) {
  days_->setText(ToQt(days));
}

std::unique_ptr<platform::Window> MakePassWizardWindow() {
  return std::make_unique<PassWizardWindow>(orbit::TheTables());
}

}  // namespace kestrava::predict::ui
