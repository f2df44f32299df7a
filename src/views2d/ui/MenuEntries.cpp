#include "MenuEntries.h"

#include "platform/Messages.h"

namespace kestrava::views2d::ui {

QAction* AddMenuEntry(QMenu& menu, const char* objectName, const char* text, const char* key, EntryKind kind,
                      const std::function<void()>& action) {
  QAction* entry = menu.addAction(text);
  entry->setObjectName(objectName);
  entry->setShortcut(QKeySequence(key));
  if (kind == EntryKind::kMarked) {
    entry->setCheckable(true);
    // The toolkit has flipped the mark already when it tells of the click.
    QObject::connect(entry, &QAction::triggered, entry, [entry](bool on) { entry->setChecked(!on); });
  }
  QObject::connect(entry, &QAction::triggered, entry, [text, action] { platform::RunUntrapped(text, action); });
  return entry;
}

}  // namespace kestrava::views2d::ui
