// The controls of the settings panels, as their behaviours work with them: lists with tick boxes, tick boxes, sliders
// that show their value.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <QWidget>

#include "panels/PanelControls.h"
#include "panels/SettingRows.h"
#include "platform/qt/ChoiceWidgets.h"

namespace kestrava::panels::ui {

/// A list whose rows have tick boxes. The signals around a tick of the user's come before and after the toolkit
/// toggles.
class TickList : public platform::qt::ListBox, public TickListControl {
  Q_OBJECT

 public:
  explicit TickList(QWidget* parent = nullptr);
  /// What stands in the middle of a list whose rows are all hidden.
  void SetNoneShownHint(const QString& hint) { noneShownHint_ = hint; }
  /// What the star beside a row tells whoever cannot see it.
  void SetMarkMeaning(const QString& meaning) { markMeaning_ = meaning; }
  bool IsMarked(int row) const;
  /// -1: none is shown.
  int FirstShown() const;

  void Clear() override { ListBox::Clear(); }
  void Add(std::string_view row) override;
  void Remove(int row) override { ListBox::Remove(row); }
  int Count() const override { return ListBox::Count(); }
  std::string Row(int row) const override { return ListBox::Row(row); }
  int Selected() const override { return ListBox::Selected(); }
  void Select(int row) override { ListBox::Select(row); }
  bool IsTicked(int row) const override;
  void SetTicked(int row, bool ticked) override;
  bool IsShown(int row) const override;
  void SetShown(int row, bool shown) override;
  void SetMarked(int row, bool marked) override;

 signals:
  /// A mouse button went down on the list, or a key that ticks.
  void UserTickBegins();
  /// The same came up, and the toolkit has toggled; or it will not be heard of any more, as the keyboard has gone
  /// elsewhere or the list from the screen.
  void UserTickEnds();
  /// The tick of a row has changed, whoever did it.
  void Ticked(int row, bool ticked);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void TellTick(const QListWidgetItem& item);

  QString noneShownHint_;
  QString markMeaning_;
};

/// A tick box of a row of settings: object name and caption from there.
class TickBox : public QCheckBox, public CheckControl {
  Q_OBJECT

 public:
  /// @param caption  what the user reads: the row's, with a mnemonic
  TickBox(const QString& objectName, const QString& caption, QWidget* parent);

  bool IsChecked() const override { return isChecked(); }
  void SetChecked(bool checked) override { setChecked(checked); }  // `clicked` is the user's alone
};

/// A slider with the value beside it. `Moved` while the user drags, `Changed` once when he has let go after a move, or
/// at each step by keys, wheel (with the focus only) or a click beside the handle.
class ValueSlider : public QWidget, public SliderControl {
  Q_OBJECT

 public:
  ValueSlider(const SliderRow& row, QWidget* parent);

  int Value() const override { return slider_->value(); }
  void SetValue(int value) override;
  void SetLabel(std::string_view text) override;
  QSlider* Slider() const { return slider_; }
  /// The room that the value beside the slider takes.
  int LabelWidth() const { return label_->minimumWidth(); }
  void SetLabelWidth(int width) { label_->setMinimumWidth(width); }

 signals:
  void Moved();
  void Changed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TellChange();

  QSlider* slider_;
  QLabel* label_;
  bool byCode_ = false;
  bool moved_ = false;
};

/// A line that warns: bold, and in a colour that stands out on its window in both looks. Called anew when the palette
/// changes.
void MarkAsWarning(QLabel& line, bool warning);

}  // namespace kestrava::panels::ui
