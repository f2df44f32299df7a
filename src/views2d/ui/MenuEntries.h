// Entries of a view's menu bar, as the behaviour needs them.
#pragma once

#include <QAction>
#include <QMenu>
#include <functional>

namespace kestrava::views2d::ui {

enum class EntryKind { kPlain, kMarked };

/// An entry with its object name, text and key. What it does runs untrapped: a fault is told and the window stays. A
/// check mark follows the behaviour alone, which flips it in the action.
QAction* AddMenuEntry(QMenu& menu, const char* objectName, const char* text, const char* key, EntryKind kind,
                      const std::function<void()>& action);

}  // namespace kestrava::views2d::ui
