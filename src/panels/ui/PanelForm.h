// How a settings panel is laid out: sections one below the other in a page that scrolls, labels in one column and
// fields in the next.
#pragma once

#include <QGridLayout>
#include <QGroupBox>
#include <QString>
#include <QWidget>
#include <string_view>
#include <vector>

#include "PanelWidgets.h"

namespace kestrava::panels::ui {

/// A text with the mark of its mnemonic in front of the first place where `at` stands in it.
QString WithMnemonic(std::string_view text, std::string_view at);

/// What the sections of a panel stand in.
QWidget* MakePage(QWidget& window);
/// An empty section of a panel. @param title  what the user reads on top of it
QGroupBox* MakeSection(const char* name, const QString& title, QWidget* parent);
/// A section's grid: labels, then fields, which take what is left.
QGridLayout* MakeGrid(QGroupBox& section);
/// Adds a row of a label, whose mnemonic leads to the field, and the field.
void AddField(QGridLayout& grid, const QString& label, QWidget* field);
/// Adds something that takes a row by itself.
void AddLine(QGridLayout& grid, QWidget* line);
/// Adds a small field with its unit behind it. @param name  of the field for assistive programs, its unit too
void AddFieldWithUnit(QGridLayout& grid, const QString& label, QWidget* field, const QString& unit,
                      const QString& name);
/// Adds the tick box of a row of settings, its mnemonic in front of the first place where `at` stands in its caption.
TickBox* AddTickBox(QGridLayout& grid, const CheckRow& row, std::string_view at);
/// Adds the slider of a row of settings beside its heading, which has the mnemonic.
ValueSlider* AddValueSlider(QGridLayout& grid, const SliderRow& row, std::string_view at);
/// Adds a line of explanation.
void AddNote(QGridLayout& grid, const QString& text);

/// Puts the sections into the page and the page into the window, where it scrolls if the window is small and stays
/// readable if it is large, and makes the window as large as they need, if the screen is.
void LayOutPanel(QWidget& window, QWidget* page, const std::vector<QGroupBox*>& sections);

}  // namespace kestrava::panels::ui
