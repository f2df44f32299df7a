#include "PlaceForm.h"

#include <QGridLayout>
#include <QRegularExpressionValidator>
#include <QToolTip>
#include <QVBoxLayout>

#include "platform/qt/Forms.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

using platform::qt::ArrayName;
using platform::qt::LabelFor;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kGapPx = 6;
constexpr int kPartLetters = 5;
constexpr int kDecimalLetters = 12;
constexpr int kBoxEdgePx = 18;

void KeepNarrow(QLineEdit& box, int letters) {
  const int width = box.fontMetrics().horizontalAdvance(QString(letters, '0')) + kBoxEdgePx;
  box.setMinimumWidth(width);
  box.setMaximumWidth(width);
}

/// A semicolon parts the fields of a line in the file of places: the box does not take it, and says why.
void RefuseSemicolons(QLineEdit& box) {
  box.setValidator(new QRegularExpressionValidator(QRegularExpression("[^;]*"), &box));
  QObject::connect(&box, &QLineEdit::inputRejected, &box, [&box] {
    QToolTip::showText(box.mapToGlobal(QPoint(0, box.height())),
                       PlaceForm::tr("A name takes no semicolon: it parts the fields in the file of places."), &box);
  });
}

QGridLayout* PageGrid(QWidget* page, int lastColumn) {
  auto* grid = new QGridLayout(page);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kGapPx);
  grid->setVerticalSpacing(kGapPx);
  grid->setColumnStretch(lastColumn + 1, 1);
  return grid;
}

}  // namespace

PlaceForm::PlaceForm(QWidget* parent) : QGroupBox(tr("Place"), parent) {
  setObjectName("Frame2");
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGapPx);
  grid->setVerticalSpacing(kGapPx);
  BuildTop(*grid);
  pages_ = new QStackedWidget(this);
  pages_->addWidget(BuildParts());
  pages_->addWidget(BuildDecimals());
  pages_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  words_ = Named(new QLabel(this), "LAplace", tr("The place in words"));
  words_->setTextFormat(Qt::PlainText);
  words_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setSpacing(kGapPx);
  column->addLayout(grid);
  column->addWidget(pages_);
  column->addWidget(words_);
  platform::qt::EmboldenTitle(*this);
}

void PlaceForm::BuildTop(QGridLayout& grid) {
  city = Named(new CitySearch(this), "Tcity");
  city->setPlaceholderText(tr("Type its name"));
  cityAnswer = Named(new QLabel(tr("A city fills in the boxes below."), this), "LAcity");
  cityAnswer->setTextFormat(Qt::PlainText);
  cityAnswer->setWordWrap(true);
  cityAnswer->setBuddy(city);
  auto* name = MakeBox(PlaceBox::kName, "Tlocation", this);
  RefuseSemicolons(*name);
  auto* height = MakeBox(PlaceBox::kHeight, "tHASL", this);
  KeepNarrow(*height, kPartLetters);
  decimals = new TickBox("CHdecDeg", tr("Enter Co-ordinates in &Decimal Deg."), this);
  grid.setColumnStretch(1, 1);
  grid.addWidget(LabelFor(city, tr("&Find a City"), this), 0, 0);
  grid.addWidget(city, 0, 1);
  grid.addWidget(cityAnswer, 1, 1);
  grid.addWidget(LabelFor(name, tr("&Name of Location"), this), 2, 0);
  grid.addWidget(name, 2, 1);
  grid.addWidget(LabelFor(height, tr("&Height Above Sea Level (metres)"), this), 3, 0);
  grid.addWidget(height, 3, 1);
  grid.addWidget(decimals, 4, 0, 1, 2);
}

/// What a box takes, where its number is not what a user may expect.
QString PlaceForm::HintOf(PlaceBox box) {
  switch (box) {
    case PlaceBox::kHeight:
      return tr("Whole metres above sea level; below it with a minus");
    case PlaceBox::kLatDec:
      return tr("0 to 90, without a sign: \"North\" says on which side of the equator");
    case PlaceBox::kLonDec:
      return tr(
          "0 to 360, without a sign: \"West\" says which way. Files and settings hold west longitudes as positive "
          "numbers: 1° east is 359 there");
    case PlaceBox::kLatDeg:
      return tr(
          "0 to 90: \"North\" says on which side of the equator. A minus would count for the degrees alone, not "
          "for minutes and seconds");
    case PlaceBox::kLonDeg:
      return tr(
          "0 to 360: \"West\" says which way. A minus would count for the degrees alone, not for minutes and "
          "seconds");
    default:
      return {};
  }
}

QLineEdit* PlaceForm::MakeBox(PlaceBox box, const QString& name, QWidget* parent) {
  auto* field = Named(new QLineEdit(parent), name, ToQt(NameOf(box)));
  field->setToolTip(HintOf(box));
  connect(field, &QLineEdit::textEdited, this, &PlaceForm::Edited);
  boxes_.at(static_cast<std::size_t>(box)) = field;
  return field;
}

QWidget* PlaceForm::BuildParts() {
  struct Row {
    const char* array;
    QString caption;
    std::array<PlaceBox, 3> boxes;
    PlaceTick tick;
  };
  auto* page = Named(new QFrame(this), "PageDMS");
  auto* grid = PageGrid(page, 8);
  const Row rows[] = {
      {"tLAT1", tr("Lat&itude"), {PlaceBox::kLatDeg, PlaceBox::kLatMin, PlaceBox::kLatSec}, PlaceTick::kNorth},
      {"tLON1", tr("Lon&gitude"), {PlaceBox::kLonDeg, PlaceBox::kLonMin, PlaceBox::kLonSec}, PlaceTick::kWest}};
  const QString units[] = {tr("°"), tr("'"), tr("\"")};
  for (int row = 0; row < 2; ++row) {
    for (int i = 0; i < 3; ++i) {
      const PlaceBox box = rows[row].boxes.at(static_cast<std::size_t>(i));
      auto* field = MakeBox(box, ArrayName(rows[row].array, i), page);
      KeepNarrow(*field, kPartLetters);
      grid->addWidget(field, row, 1 + 2 * i);
      AddUnit(*grid, row, 2 + 2 * i, box, units[i]);
    }
    auto* label = new QLabel(rows[row].caption, page);
    label->setBuddy(&Box(rows[row].boxes[0]));
    grid->addWidget(label, row, 0);
    AddSign(*grid, row, 7, PlacePage::kParts, rows[row].tick);
  }
  return page;
}

QWidget* PlaceForm::BuildDecimals() {
  auto* page = Named(new QFrame(this), "PageDEC");
  auto* grid = PageGrid(page, 4);
  int row = 0;
  for (const auto& [box, name, caption, tick] :
       {std::tuple{PlaceBox::kLatDec, "tLAT2", tr("Lat&itude"), PlaceTick::kNorth},
        std::tuple{PlaceBox::kLonDec, "TLON2", tr("Lon&gitude"), PlaceTick::kWest}}) {
    auto* field = MakeBox(box, name, page);
    KeepNarrow(*field, kDecimalLetters);
    auto* label = new QLabel(caption, page);
    label->setBuddy(field);
    grid->addWidget(label, row, 0);
    grid->addWidget(field, row, 1);
    AddUnit(*grid, row, 2, box, tr("°"));
    AddSign(*grid, row, 3, PlacePage::kDecimal, tick);
    ++row;
  }
  return page;
}

void PlaceForm::AddUnit(QGridLayout& grid, int row, int column, PlaceBox box, const QString& unit) {
  auto* label = new QLabel(unit, Box(box).parentWidget());
  label->setBuddy(&Box(box));
  grid.addWidget(label, row, column);
}

void PlaceForm::AddSign(QGridLayout& grid, int row, int column, PlacePage page, PlaceTick tick) {
  const bool north = tick == PlaceTick::kNorth;
  const int index = page == PlacePage::kParts ? 0 : 2;
  auto* parent = grid.parentWidget();
  auto* box = new TickBox(ArrayName(north ? "CHns" : "CHew", index), north ? tr("N&orth") : tr("&West"), parent);
  auto* other = new QLabel(north ? tr("unticked: south") : tr("unticked: east"), parent);
  other->setBuddy(box);
  box->setAccessibleDescription(other->text());
  grid.addWidget(box, row, column);
  grid.addWidget(other, row, column + 1);
  ticks_[{page, tick}] = box;
  connect(box, &QCheckBox::clicked, this, [this, page, tick] { emit SignClicked(page, tick); });
}

void PlaceForm::ShowWords(const QString& words, bool wrong) {
  words_->setText(words);
  QFont font = words_->font();
  font.setItalic(wrong);
  font.setBold(!wrong);
  words_->setFont(font);
}

std::vector<QWidget*> PlaceForm::InOrder() const {
  std::vector<QWidget*> all{city, &Box(PlaceBox::kName), &Box(PlaceBox::kHeight), decimals};
  const auto add = [&](std::initializer_list<PlaceBox> boxes, PlacePage page, PlaceTick tick) {
    for (const PlaceBox box : boxes) all.push_back(&Box(box));
    all.push_back(&Tick(page, tick));
  };
  add({PlaceBox::kLatDeg, PlaceBox::kLatMin, PlaceBox::kLatSec}, PlacePage::kParts, PlaceTick::kNorth);
  add({PlaceBox::kLonDeg, PlaceBox::kLonMin, PlaceBox::kLonSec}, PlacePage::kParts, PlaceTick::kWest);
  add({PlaceBox::kLatDec}, PlacePage::kDecimal, PlaceTick::kNorth);
  add({PlaceBox::kLonDec}, PlacePage::kDecimal, PlaceTick::kWest);
  return all;
}

}  // namespace kestrava::panels::ui
