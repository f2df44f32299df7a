// Texts of a window as other languages have them.
#pragma once

#include <QCoreApplication>
#include <QTranslator>

namespace kestrava::panels::ui {

/// Every text by a half longer, while this lives.
class LongWords : public QTranslator {
 public:
  LongWords() { QCoreApplication::installTranslator(this); }
  ~LongWords() override { QCoreApplication::removeTranslator(this); }
  bool isEmpty() const override { return false; }
  QString translate(const char*, const char* source, const char*, int) const override {
    const QString text = QString::fromUtf8(source);
    return text.size() < 4 ? text : text + QString(text).remove('&').left(text.size() / 2);
  }
};

}  // namespace kestrava::panels::ui
