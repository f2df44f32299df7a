#include "GroupsWindow.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "orbit/Satcalc.h"
#include "panels/ui/PanelWindows.h"
#include "platform/Messages.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Widgets.h"
#include "station/Hub.h"

#include "TextQuestion.h"

namespace kestrava::panels::ui {

using platform::qt::ComboList;
using platform::qt::EmboldenTitle;
using platform::qt::FromQt;
using platform::qt::LabelFor;
using platform::qt::Named;
using platform::qt::SkinButton;
using platform::qt::ToQt;

namespace {

constexpr int kWidthPx = 880;
constexpr int kHeightPx = 560;
constexpr int kMarginPx = 5;
constexpr int kGapPx = 6;
constexpr int kSectionGapPx = 6;
constexpr int kListHeightPx = 70;
constexpr int kScrollBarPx = 24;
constexpr int kSparePaddingPx = 14;
constexpr const char* kOffer = "CLICK HERE";

/// A button that is never narrower than its caption needs, but may be narrower than it would like.
SkinButton* WholeButton(const char* name, const QString& text, const QString& hint, QWidget* parent) {
  SkinButton* button = platform::qt::MakeButton(name, text, hint, parent);
  button->setMinimumWidth(button->sizeHint().width() - kSparePaddingPx);
  return button;
}

QVBoxLayout* ColumnIn(QGroupBox* section) {
  auto* column = new QVBoxLayout(section);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kGapPx);
  return column;
}

/// A list or text takes the height that is left over, however little that is, and asks for none beyond its least: the
/// window would scroll otherwise before it shrinks.
void TakeWhatIsLeft(QWidget* control) {
  control->setMinimumHeight(kListHeightPx);
  control->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
}

QLabel* HeadingFor(QWidget* control, const QString& text, QWidget* parent) {
  QLabel* heading = LabelFor(control, text, parent);
  heading->setWordWrap(true);
  return heading;
}

/// What the user reads as an open question of the window must not be cut off in the list that drops down.
void WidenList(QComboBox& combo) {
  combo.view()->setMinimumWidth(combo.view()->sizeHintForColumn(0) + kScrollBarPx);
}

QString NameOfSign(QChar sign) {
  if (sign == ',') return QObject::tr("A comma");
  return QObject::tr("The sign \"%1\"").arg(sign);
}

}  // namespace

GroupsWindow::GroupsWindow(orbit::Tables& tables, std::function<const orbit::OrbitEngine*()> engine)
    : StationWindow(kGroupsWindow), behaviour_(std::make_unique<GroupsPanel>(tables, std::move(engine), *this)) {
  setWindowTitle(ToQt(kGroupsCaption));
  BuildUi();
  ConnectSignals();
  UpdateButtons();
}

GroupsWindow::~GroupsWindow() = default;

void GroupsWindow::BuildUi() {
  auto* content = new QWidget(this);
  auto* row = new QHBoxLayout(content);
  row->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  row->setSpacing(kSectionGapPx);
  row->addWidget(BuildGroups(content), 4);
  row->addWidget(BuildSatellites(content), 5);
  row->addWidget(BuildInformation(content), 5);
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(platform::qt::ScrollingArea(content, this));
  resize(kWidthPx, kHeightPx);
  groups_->setFocus();
}

QGroupBox* GroupsWindow::BuildGroups(QWidget* parent) {
  auto* section = Named(new QGroupBox(tr("Groups"), parent), "Frame1");
  groups_ = Named(new platform::qt::ListBox(section), "GroupList");
  groups_->SetHint(tr("No groups yet. Take one from the list below, or add one of your own."));
  TakeWhatIsLeft(groups_);
  addGroup_ =
      WholeButton("BUTaddgroup", tr("Add &New Group"), tr("Asks for a name, and where its elements are"), section);
  deleteGroup_ = WholeButton("BUTdeletegroup", tr("&Delete Group"), {}, section);
  server_ = Named(new ComboList(section), "COMCelestrak");
  addServer_ = WholeButton("BUTaddCelestrak", tr("&Add This to your Groups"), {}, section);
  QVBoxLayout* column = ColumnIn(section);
  column->addWidget(HeadingFor(groups_, tr("Your &Groups"), section));
  column->addWidget(groups_, 1);
  column->addWidget(addGroup_);
  column->addWidget(deleteGroup_);
  column->addSpacing(kGapPx);
  column->addWidget(HeadingFor(server_, tr("Groups of the &Element Server"), section));
  column->addWidget(server_);
  column->addWidget(addServer_);
  EmboldenTitle(*section);
  return section;
}

QGroupBox* GroupsWindow::BuildSatellites(QWidget* parent) {
  auto* section = Named(new QGroupBox(tr("Satellites"), parent), "Frame2");
  filter_ = Named(new QLineEdit(section), "FilterBox");
  filter_->setPlaceholderText(tr("Part of a name"));
  filter_->setToolTip(tr("Shows only satellites with this in their name (Escape: all of them, Down: to the list)"));
  filter_->installEventFilter(this);
  satellites_ = Named(new TickList(section), "SatelliteList");
  satellites_->SetMarkMeaning(tr("The primary favourite"));
  satellites_->SetHint(tr("No satellites. Select a group whose element file is there."));
  satellites_->SetNoneShownHint(
      tr("No satellite of this group has that in its name. Escape in the search box shows all."));
  TakeWhatIsLeft(satellites_);
  satellites_->setToolTip(tr("A tick makes a favourite (space bar)"));
  count_ = Named(new QLabel(section), "FavouriteCount");
  count_->setWordWrap(true);
  selectAll_ = WholeButton("BUTsel", tr("&Select All"), {}, section);
  deselectAll_ = WholeButton("BUTdesel", tr("Deselect A&ll"), {}, section);
  makePrime_ = WholeButton("BUTmakeprime", tr("Make &Primary Satellite"), {}, section);
  auto* search = new QHBoxLayout;
  search->addWidget(LabelFor(filter_, tr("Sea&rch"), section));
  search->addWidget(filter_, 1);
  auto* all = new QHBoxLayout;
  all->addWidget(selectAll_);
  all->addWidget(deselectAll_);
  QVBoxLayout* column = ColumnIn(section);
  column->addWidget(HeadingFor(satellites_, tr("&Favourite Satellites in selected Group"), section));
  column->addLayout(search);
  column->addWidget(satellites_, 1);
  column->addWidget(count_);
  column->addLayout(all);
  column->addWidget(makePrime_);
  EmboldenTitle(*section);
  return section;
}

QGroupBox* GroupsWindow::BuildInformation(QWidget* parent) {
  auto* section = Named(new QGroupBox(tr("Information"), parent), "Frame3");
  details_ = Named(new OfferText(section), "Details");
  TakeWhatIsLeft(details_);
  findInfo_ = WholeButton("BUTfindInfo", tr("Find more info on Interne&t"), {}, section);
  QVBoxLayout* column = ColumnIn(section);
  column->addWidget(HeadingFor(details_, tr("Selected Satellite &Information"), section));
  column->addWidget(details_, 1);
  column->addWidget(findInfo_);
  EmboldenTitle(*section);
  return section;
}

void GroupsWindow::ConnectSignals() {
  connect(groups_, &platform::qt::ListBox::Chosen, this,
          [this] { Run("The listing of the group", &GroupsPanel::GroupListClicked); });
  connect(groups_, &QListWidget::itemSelectionChanged, this, [this] { UpdateButtons(); });
  connect(satellites_, &QListWidget::itemSelectionChanged, this, [this] { UpdateButtons(); });
  connect(server_, &QComboBox::currentIndexChanged, this, [this] { UpdateButtons(); });
  connect(satellites_, &platform::qt::ListBox::Chosen, this,
          [this] { Run("The information about the satellite", &GroupsPanel::SatelliteClicked); });
  connect(details_, &OfferText::Accepted, this, [this] { Run("The request", &GroupsPanel::DetailsClicked); });
  connect(filter_, &QLineEdit::textChanged, this, [this] { FilterTyped(); });
  ConnectTicks();
  OnClick(addGroup_, "The adding of a group", &GroupsPanel::AddGroupClicked);
  OnClick(deleteGroup_, "The deletion of a group", &GroupsPanel::DeleteGroupClicked);
  OnClick(addServer_, "The adding of a group", &GroupsPanel::AddServerGroupClicked);
  OnClick(selectAll_, "The selection of all", &GroupsPanel::SelectAllClicked);
  OnClick(deselectAll_, "The deselection of all", &GroupsPanel::DeselectAllClicked);
  OnClick(makePrime_, "The change of the primary favourite", &GroupsPanel::MakePrimeClicked);
  OnClick(findInfo_, "The search", &GroupsPanel::FindInfoClicked);
}

void GroupsWindow::ConnectTicks() {
  connect(satellites_, &TickList::UserTickBegins, this, [this] { behaviour_->BeginUserTick(); });
  connect(satellites_, &TickList::UserTickEnds, this, [this] { behaviour_->EndUserTick(); });
  connect(satellites_, &TickList::Ticked, this, [this](int row, bool ticked) {
    platform::RunUntrapped("The tick", [&] { behaviour_->SatelliteTicked(row, ticked); });
  });
}

void GroupsWindow::OnClick(QAbstractButton* button, const char* what, Deed deed) {
  connect(button, &QAbstractButton::clicked, this, [this, what, deed] { Run(what, deed); });
}

void GroupsWindow::Run(const char* what, Deed deed) {
  const int groups = groups_->Count();
  platform::RunUntrapped(what, [&] { (*behaviour_.*deed)(); });
  if (groups_->Count() > groups) groups_->scrollToBottom();  // the new one is seen
  UpdateButtons();
}

/// What cannot be seen is not chosen: the buttons below the list would act on it.
void GroupsWindow::FilterTyped() {
  Run("The search", &GroupsPanel::FilterChanged);
  const int chosen = satellites_->Selected();
  if (chosen >= 0 && !satellites_->IsShown(chosen)) satellites_->Select(-1);
}

void GroupsWindow::UpdateButtons() {
  const bool filtered = !filter_->text().trimmed().isEmpty();
  const bool noneShown = satellites_->FirstShown() < 0;
  const QString missing = filtered ? tr("The search shows no satellite") : tr("There is no satellite in the list");
  const QString all = filtered ? tr("all satellites that the search shows") : tr("all satellites of the group");
  selectAll_->setToolTip(noneShown ? missing : tr("Makes favourites of %1").arg(all));
  deselectAll_->setToolTip(noneShown ? missing : tr("Takes %1 off the favourites").arg(all));
  ExplainButtons();
}

/// Every button can be clicked at any time. Where it would have nothing to act on it says what is missing.
void GroupsWindow::ExplainButtons() {
  deleteGroup_->setToolTip(groups_->Count() == 0     ? tr("There is no group on the list")
                           : groups_->Selected() < 0 ? tr("Select a group first")
                                                     : tr("Takes the selected group off the list, without asking; its "
                                                          "file stays"));
  const bool noServerGroup = server_->currentIndex() < 0;
  addServer_->setToolTip(noServerGroup ? tr("Choose a group of the element server first, in the list above")
                                       : tr("Adds the group chosen above; its file comes with the next Internet "
                                            "update"));
  const bool noSatellite = satellites_->Selected() < 0;
  makePrime_->setToolTip(noSatellite ? tr("Select a satellite first")
                                     : tr("Puts the selected satellite first among the favourites. One that is no "
                                          "favourite takes the place of the first"));
  findInfo_->setToolTip(noSatellite ? tr("Select a satellite first")
                                    : tr("Searches the web for the selected satellite"));
}

bool GroupsWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == filter_ && event->type() == QEvent::KeyPress &&
      FilterKeyPressed(static_cast<QKeyEvent*>(event)->key())) {
    return true;
  }
  return StationWindow::eventFilter(watched, event);
}

/// @return false for a key that the box has a use for itself
bool GroupsWindow::FilterKeyPressed(int key) {
  if (key == Qt::Key_Escape && !filter_->text().isEmpty()) {
    filter_->clear();
    return true;
  }
  const bool toTheList = key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter;
  const int first = satellites_->FirstShown();
  if (!toTheList || first < 0) return false;
  satellites_->setFocus();
  if (satellites_->Selected() < 0) satellites_->setCurrentRow(first);
  return true;
}

void GroupsWindow::changeEvent(QEvent* event) {
  StationWindow::changeEvent(event);
  const bool newLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
  if (newLook && count_) MarkAsWarning(*count_, tooMany_);
}

void GroupsWindow::Show() {
  StationWindow::Show();
  if (std::exchange(loaded_, true)) return;
  behaviour_->Load();
  WidenList(*server_);
  UpdateButtons();
}

void GroupsWindow::OnUnload() {
  ended_ = true;
  CancelQuestionOver(*this);
  behaviour_->Unload();
  StationWindow::OnUnload();
}

/// A window that goes with the launcher does not come here: nobody is asked anything then.
bool GroupsWindow::MayClose() {
  bool may = true;
  platform::RunUntrapped("The closing", [&] { may = behaviour_->MayClose(); });
  userCloses_ = may && !ended_;
  return may;
}

void GroupsWindow::closeEvent(QCloseEvent* event) {
  StationWindow::closeEvent(event);
  if (std::exchange(userCloses_, false)) platform::RunUntrapped("The closing", [this] { behaviour_->UserClosed(); });
}

void GroupsWindow::SetDetails(std::string_view text) {
  details_->Show(ToQt(text), behaviour_->DetailsOffer(), kOffer);
}

void GroupsWindow::ShowFavouriteCount(std::string_view text, bool tooMany) {
  tooMany_ = tooMany;
  MarkAsWarning(*count_, tooMany);
  count_->setText(tooMany ? ToQt(text) + tr(". The last one will not be saved.") : ToQt(text));
}

std::string GroupsWindow::FilterText() const {
  return FromQt(filter_->text());
}

std::optional<std::string> GroupsWindow::AskText(std::string_view prompt, std::string_view title,
                                                 std::string_view defaultText, std::string_view refused) {
  const QString signs = ToQt(refused);
  const QString why = signs.isEmpty() ? QString()
                                      : tr("%1 cannot be a part of it: in the file of the groups it parts the fields.")
                                            .arg(NameOfSign(signs.front()));
  const std::optional<QString> answer = AskForText({ToQt(prompt), ToQt(title), ToQt(defaultText), signs, why}, *this);
  if (!answer || ended_) return std::nullopt;
  return FromQt(*answer);
}

void GroupsWindow::StartStationAnew() {
  station::TheHub().StartAnew();
}

std::unique_ptr<platform::Window> MakeGroupsWindow() {
  return std::make_unique<GroupsWindow>(orbit::TheTables(), [] { return orbit::Engine.get(); });
}

}  // namespace kestrava::panels::ui
