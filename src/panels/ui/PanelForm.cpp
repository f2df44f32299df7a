#include "PanelForm.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/Forms.h"
#include "platform/qt/LaterWindows.h"
#include "platform/qt/Widgets.h"

#include "PanelWidgets.h"

namespace kestrava::panels::ui {

using platform::qt::LabelFor;
using platform::qt::Named;
using platform::qt::ToQt;

namespace {

constexpr int kMarginPx = 12;
constexpr int kGapPx = 8;
constexpr int kPageLetters = 130;  // wider a page is not easier to read
constexpr int kLeastWidthPx = 260;
constexpr int kLeastHeightPx = 160;
constexpr int kUsualWidthPx = 620;
constexpr double kShareOfScreen = 0.9;

/// Not wider than is easy to read, but never narrower than its texts need.
class Page : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  bool event(QEvent* event) override {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Polish) {
      setMaximumWidth(std::max(kPageLetters * fontMetrics().averageCharWidth(), minimumSizeHint().width()));
    }
    return handled;
  }
};

/// The fields of all sections begin at the same place.
void AlignFields(const std::vector<QGroupBox*>& sections) {
  std::vector<QGridLayout*> grids;
  for (const QGroupBox* section : sections) {
    if (auto* grid = qobject_cast<QGridLayout*>(section->layout())) grids.push_back(grid);
  }
  int widest = 0;
  for (const QGridLayout* grid : grids) {
    for (int row = 0; row < grid->rowCount(); ++row) {
      const QLayoutItem* label = grid->itemAtPosition(row, 0);
      if (label != nullptr && label != grid->itemAtPosition(row, 1))
        widest = std::max(widest, label->sizeHint().width());
    }
  }
  for (QGridLayout* grid : grids) grid->setColumnMinimumWidth(0, widest);
}

/// All sliders end at the same place.
void AlignSliders(const QWidget& page) {
  const auto sliders = page.findChildren<ValueSlider*>();
  int widest = 0;
  for (const ValueSlider* slider : sliders) widest = std::max(widest, slider->LabelWidth());
  for (ValueSlider* slider : sliders) slider->SetLabelWidth(widest);
}

}  // namespace

QString WithMnemonic(std::string_view text, std::string_view at) {
  QString marked = ToQt(text);
  const qsizetype place = marked.indexOf(ToQt(at));
  return place < 0 ? marked : marked.insert(place, '&');
}

QWidget* MakePage(QWidget& window) {
  return new Page(&window);
}

QGroupBox* MakeSection(const char* name, const QString& title, QWidget* parent) {
  return Named(new QGroupBox(title, parent), name, title);
}

QGridLayout* MakeGrid(QGroupBox& section) {
  auto* grid = new QGridLayout(&section);
  grid->setHorizontalSpacing(2 * kGapPx);
  grid->setVerticalSpacing(kGapPx);
  grid->setColumnStretch(1, 1);
  return grid;
}

void AddField(QGridLayout& grid, const QString& label, QWidget* field) {
  const int row = grid.rowCount();
  grid.addWidget(LabelFor(field, label, grid.parentWidget()), row, 0);
  grid.addWidget(field, row, 1);
}

void AddLine(QGridLayout& grid, QWidget* line) {
  grid.addWidget(line, grid.rowCount(), 0, 1, 2, Qt::AlignLeft);
}

void AddFieldWithUnit(QGridLayout& grid, const QString& label, QWidget* field, const QString& unit,
                      const QString& name) {
  auto* behind = new QLabel(unit, grid.parentWidget());
  behind->setBuddy(field);
  auto* line = new QHBoxLayout;
  line->setSpacing(kGapPx);
  line->addWidget(field);
  line->addWidget(behind);
  line->addStretch(1);
  const int row = grid.rowCount();
  grid.addWidget(LabelFor(field, label, grid.parentWidget()), row, 0);
  grid.addLayout(line, row, 1);
  field->setAccessibleName(name);
}

TickBox* AddTickBox(QGridLayout& grid, const CheckRow& row, std::string_view at) {
  auto* box = new TickBox(ToQt(row.objectName), WithMnemonic(row.caption, at), grid.parentWidget());
  if (!row.window.empty()) platform::qt::EnableByWindow(*box, row.window);
  AddLine(grid, box);
  return box;
}

ValueSlider* AddValueSlider(QGridLayout& grid, const SliderRow& row, std::string_view at) {
  auto* slider = new ValueSlider(row, grid.parentWidget());
  AddField(grid, WithMnemonic(row.heading, at), slider);
  return slider;
}

void AddNote(QGridLayout& grid, const QString& text) {
  auto* note = new QLabel(text, grid.parentWidget());
  note->setWordWrap(true);
  note->setTextFormat(Qt::PlainText);
  grid.addWidget(note, grid.rowCount(), 0, 1, 2);
}

void LayOutPanel(QWidget& window, QWidget* page, const std::vector<QGroupBox*>& sections) {
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
  column->setSpacing(kMarginPx);
  for (QGroupBox* section : sections) {
    platform::qt::EmboldenTitle(*section);
    column->addWidget(section);
  }
  AlignFields(sections);
  AlignSliders(*page);
  column->addStretch(1);
  QScrollArea* area = platform::qt::ScrollingArea(page, &window);
  area->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  auto* whole = new QVBoxLayout(&window);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->addWidget(area);
  window.setMinimumSize(kLeastWidthPx, kLeastHeightPx);
  const int width = std::max(column->sizeHint().width(), kUsualWidthPx);
  const int height = column->hasHeightForWidth() ? column->heightForWidth(width) : column->sizeHint().height();
  window.resize(QSize(width, height).boundedTo(window.screen()->availableSize() * kShareOfScreen));
}

}  // namespace kestrava::panels::ui
