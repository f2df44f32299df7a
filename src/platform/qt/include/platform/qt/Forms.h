// Parts of a window full of controls, the same in every such window: labelled fields, buttons, sections, and the area
// that scrolls when the window is made small.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>

#include "platform/qt/SkinButton.h"

namespace kestrava::platform::qt {

/// A label whose mnemonic leads to a control, which it also names for assistive programs.
QLabel* LabelFor(QWidget* control, const QString& text, QWidget* parent);

/// A push button under its object name. @param hint  its tool tip
SkinButton* MakeButton(const char* name, const QString& text, const QString& hint, QWidget* parent);

/// What a button does, and, where it has nothing to act on, what is missing: as its tool tip.
void SetHint(QAbstractButton& button, const QString& hint, const QString& missing);

/// The title of a section in bold, and nothing in it. Called when all its controls are there.
void EmboldenTitle(QGroupBox& section);

/// The button that Return presses stands out. Called anew when the palette changes.
void ColourDefaultButton(SkinButton& button);

/// An area without a frame of its own that scrolls its content where the window is too small for it, and follows the
/// keyboard: a control that gets the focus is brought into sight. The skin shows through.
QScrollArea* ScrollingArea(QWidget* content, QWidget* parent);

}  // namespace kestrava::platform::qt
