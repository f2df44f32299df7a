#include "platform/qt/KeptSize.h"

#include <QLayout>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include "platform/WindowSizes.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

namespace {

constexpr const char* kFirstSize = "sizeAtFirst";
constexpr const char* kFirstMaximised = "maximisedAtFirst";

bool HasSizeToKeep(const QWidget& window) {
  return !window.property(kPlaceInSettingsProperty).toBool() && window.minimumSize() != window.maximumSize();
}

}  // namespace

void TakeKeptSize(QWidget& window) {
  if (window.property(kFirstSize).isValid() || !HasSizeToKeep(window)) return;
  if (const auto kept = KeptWindowSize(FromQt(window.objectName()))) {
    const QSize size(kept->widthPx, kept->heightPx);
    window.resize(window.screen() ? size.boundedTo(window.screen()->availableSize()) : size);
    if (kept->maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
  }
  if (window.layout() != nullptr) window.layout()->activate();  // may make it larger: that is not the user's doing
  window.setProperty(kFirstSize, window.normalGeometry().size());
  window.setProperty(kFirstMaximised, window.isMaximized());
}

void KeepChangedSize(const QWidget& window) {
  const QVariant first = window.property(kFirstSize);
  if (!first.isValid()) return;  // never shown
  const QSize size = window.normalGeometry().size();
  if (size == first.toSize() && window.isMaximized() == window.property(kFirstMaximised).toBool()) return;
  KeepWindowSize(FromQt(window.objectName()), {size.width(), size.height(), window.isMaximized()});
}

}  // namespace kestrava::platform::qt
