#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStyleOption>
#include <QTabBar>
#include <QTextEdit>
#include <algorithm>
#include <functional>

#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/Theme.h"

#include "Controls.h"
#include "Pixels.h"
#include "Rules.h"

namespace kestrava::accessibility {

namespace {

constexpr double kTextContrast = 4.5;
constexpr double kEdgeContrast = 3;
constexpr int kRowsLookedAt = 20;
constexpr int kEdgePx = 4;

/// A piece of text on a widget. @param place  on the widget
struct TextPlace {
  QRect place;
  QString text;
};
using TextPlaces = std::vector<TextPlace>;

TextPlaces TextsOfRows(const QAbstractItemView& view) {
  TextPlaces texts;
  if (!view.model()) return texts;
  const int rows = std::min(view.model()->rowCount(), kRowsLookedAt);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < view.model()->columnCount(); ++column) {
      const QModelIndex cell = view.model()->index(row, column);
      const QString text = cell.data(Qt::DisplayRole).toString().trimmed();
      const QRect whole = view.visualRect(cell);
      const QRect place = whole & view.viewport()->rect();
      const bool begins = place.left() == whole.left() && place.height() == whole.height();
      const bool ends = place.right() == whole.right();  // a column that is half in view may have its text beyond
      if (!text.isEmpty() && begins && (ends || view.model()->columnCount() == 1) && (cell.flags() & Qt::ItemIsEnabled))
        texts.push_back({place.translated(view.viewport()->pos()), text});
    }
  }
  return texts;
}

TextPlaces TextsOfHeads(const QHeaderView& heads) {
  TextPlaces texts;
  for (int section = 0; section < heads.count() && heads.model(); ++section) {
    if (heads.isSectionHidden(section) || heads.orientation() == Qt::Vertical) continue;
    const QRect place(heads.sectionViewportPosition(section), 0, heads.sectionSize(section), heads.height());
    texts.push_back({place & heads.rect(), heads.model()->headerData(section, heads.orientation()).toString()});
  }
  return texts;
}

TextPlaces TextsOfTabs(const QTabBar& bar) {
  TextPlaces texts;
  for (int tab = 0; tab < bar.count(); ++tab)
    if (bar.isTabEnabled(tab))
      texts.push_back({bar.tabRect(tab).adjusted(kEdgePx, kEdgePx, -kEdgePx, -kEdgePx), bar.tabText(tab)});
  return texts;
}

TextPlaces TextsOfMenu(const QWidget& menu, const std::function<QRect(QAction*)>& placeOf) {
  TextPlaces texts;
  for (QAction* entry : menu.actions())
    if (entry->isEnabled() && entry->isVisible() && !entry->isSeparator())
      texts.push_back({placeOf(entry), entry->text()});
  return texts;
}

QRect CaptionOf(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  const bool tick = qobject_cast<const QCheckBox*>(&button) != nullptr;
  if (tick || qobject_cast<const QRadioButton*>(&button))
    return button.style()->subElementRect(tick ? QStyle::SE_CheckBoxContents : QStyle::SE_RadioButtonContents, &option,
                                          &button);
  return button.rect().adjusted(kEdgePx, kEdgePx, -kEdgePx, -kEdgePx);
}

QRect TitleOf(const QGroupBox& box) {
  QStyleOptionGroupBox option;
  option.initFrom(&box);
  option.text = box.title();
  option.lineWidth = 1;
  option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
  return box.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &box);
}

TextPlaces TextsOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return {{label->contentsRect(), label->text()}};
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return {{CaptionOf(*button), button->text()}};
  if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return {{TitleOf(*box), box->title()}};
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
    return {{line->rect().adjusted(kEdgePx, kEdgePx, -kEdgePx, -kEdgePx), line->text() + line->placeholderText()}};
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
    return {{combo->rect().adjusted(kEdgePx, kEdgePx, -combo->height(), -kEdgePx),
             combo->currentText() + combo->placeholderText()}};
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) return TextsOfTabs(*tabs);
  if (const auto* heads = qobject_cast<const QHeaderView*>(&widget)) return TextsOfHeads(*heads);
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) return TextsOfRows(*view);
  if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget))
    return {{text->viewport()->geometry(), text->toPlainText()}};
  if (const auto* text = qobject_cast<const QTextEdit*>(&widget))
    return {{text->viewport()->geometry(), text->toPlainText()}};
  if (const auto* bar = qobject_cast<const QMenuBar*>(&widget))
    return TextsOfMenu(*bar, [bar](QAction* entry) { return bar->actionGeometry(entry); });
  if (qobject_cast<const platform::qt::LedClockWidget*>(&widget)) return {{widget.rect(), "the time"}};
  return {};
}

void CheckText(const Visit& visit, QWidget& widget, const TextPlace& text, Findings& findings) {
  const QRect place = text.place.translated(widget.mapTo(&visit.root, QPoint())) & visit.root.rect();
  const double contrast = TextContrast(GrabPart(visit.root, place));
  if (contrast < kTextContrast)
    findings.Add(visit, widget,
                 QString("\"%1\" stands out by %2 only").arg(text.text.left(30)).arg(contrast, 0, 'f', 2));
}

struct Inks {
  QPalette::ColorRole ink;
  QPalette::ColorRole ground;
};

std::vector<Inks> InksOf(const QWidget& widget) {
  using P = QPalette;
  if (qobject_cast<const QLabel*>(&widget) || qobject_cast<const QCheckBox*>(&widget) ||
      qobject_cast<const QRadioButton*>(&widget) || qobject_cast<const QGroupBox*>(&widget))
    return {{P::WindowText, P::Window}};
  if (qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget))
    return {{P::ButtonText, P::Button}};
  if (qobject_cast<const QTextEdit*>(&widget))
    return {{P::Text, P::Base}, {P::HighlightedText, P::Highlight}, {P::Link, P::Base}};
  if (qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget) ||
      qobject_cast<const QAbstractItemView*>(&widget))
    return {{P::Text, P::Base}, {P::HighlightedText, P::Highlight}};
  return {};
}

/// A style sheet and an own colour say otherwise than the palette; the picture tells of them.
bool PaletteDecides(const QWidget& widget) {
  return widget.styleSheet().isEmpty() && !qobject_cast<const platform::qt::SkinButton*>(&widget) && !IsPart(widget);
}

void CheckPalette(const Visit& visit, const QWidget& widget, Findings& findings) {
  if (!PaletteDecides(widget)) return;
  for (const Inks& pair : InksOf(widget)) {
    const double contrast =
        platform::qt::ContrastRatio(widget.palette().color(pair.ink), widget.palette().color(pair.ground));
    if (contrast < kTextContrast)
      findings.Add(visit, widget, QString("its palette's text stands out by %1 only").arg(contrast, 0, 'f', 2));
  }
}

/// A menu stands apart from the window: it is opened for the look.
Count CheckMenuTexts(const Visit& visit, QMenu& menu, Findings& findings) {
  menu.popup(QPoint());
  QCoreApplication::processEvents();
  const Visit opened{visit.window, menu};
  const TextPlaces texts = TextsOfMenu(menu, [&menu](QAction* entry) { return menu.actionGeometry(entry); });
  for (const TextPlace& text : texts) CheckText(opened, menu, text, findings);
  menu.close();
  return static_cast<Count>(texts.size());
}

QRect IndicatorOf(const QAbstractButton& button, QStyle::SubElement element) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  return button.style()->subElementRect(element, &option, &button);
}

/// The box in a row that can be ticked.
QRect IndicatorOf(const QAbstractItemView& view, const QModelIndex& row) {
  QStyleOptionViewItem option;
  option.initFrom(&view);
  option.rect = view.visualRect(row);
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  option.text = row.data().toString();
  const QRect box = view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
  return box.translated(view.viewport()->pos());
}

/// What must be seen to be an edge. @return empty where there is none
QRect EdgeOf(const QWidget& widget) {
  if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) return IndicatorOf(*box, QStyle::SE_CheckBoxIndicator);
  if (const auto* dot = qobject_cast<const QRadioButton*>(&widget))
    return IndicatorOf(*dot, QStyle::SE_RadioButtonIndicator);
  if (const auto* view = qobject_cast<const QListView*>(&widget)) {
    const QModelIndex first = view->model() ? view->model()->index(0, 0) : QModelIndex();
    const bool ticks =
        first.isValid() && first.data(Qt::CheckStateRole).isValid() && !view->visualRect(first).isEmpty();
    return ticks ? IndicatorOf(*view, first) : QRect();
  }
  const auto* text = qobject_cast<const QPlainTextEdit*>(&widget);
  const bool isField = qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
                       qobject_cast<const QAbstractSpinBox*>(&widget) || (text && !text->isReadOnly());
  return isField ? widget.rect() : QRect();
}

}  // namespace

Count CheckTexts(const Visit& visit, Findings& findings) {
  Count looked = 0;
  for (auto* widget : Visible<QWidget>(visit.root)) {
    if (!widget->isEnabled()) continue;
    const TextPlaces texts = TextsOf(*widget);
    if (!texts.empty()) BringIntoView(*widget);
    bool any = false;
    for (const TextPlace& text : texts) {
      if (text.text.trimmed().isEmpty() || (text.place & SeenPart(*widget)).isEmpty()) continue;
      CheckText(visit, *widget, text, findings);
      any = true;
      ++looked;
    }
    if (any) CheckPalette(visit, *widget, findings);
  }
  for (QMenu* menu : visit.root.findChildren<QMenu*>())
    if (!menu->actions().isEmpty() && !IsPart(*menu)) looked += CheckMenuTexts(visit, *menu, findings);
  return looked;
}

Count CheckEdges(const Visit& visit, Findings& findings) {
  Count looked = 0;
  if (QWidget* focus = visit.root.focusWidget()) focus->clearFocus();  // its mark would stand for an edge
  for (QWidget* control : ControlsOf(visit.root)) {
    const QRect edge = EdgeOf(*control);
    if (edge.isEmpty() || !control->isEnabled()) continue;
    ++looked;
    BringIntoView(*control);
    const QRect place = edge.translated(control->mapTo(&visit.root, QPoint()));
    const double contrast = EdgeContrast(visit.root, place, qobject_cast<QRadioButton*>(control) != nullptr);
    if (contrast < kEdgeContrast)
      findings.Add(visit, *control, QString("its edge stands out by %1 only").arg(contrast, 0, 'f', 2));
  }
  return looked;
}

Count CheckDisabled(const Visit& visit, Findings& findings) {
  Count looked = 0;
  for (QWidget* control : ControlsOf(visit.root)) {
    if (control->isEnabled() || !control->parentWidget()->isEnabled()) continue;
    ++looked;
    const QRect place = BringIntoView(*control);
    const QImage disabled = GrabPart(visit.root, place);
    control->setEnabled(true);
    const QImage enabled = GrabPart(visit.root, place);
    control->setEnabled(false);
    if (disabled == enabled) findings.Add(visit, *control, "disabled it looks as if it were enabled");
  }
  return looked;
}

}  // namespace kestrava::accessibility
