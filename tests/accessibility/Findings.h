// What a walk finds: window, control and what is missing there. What is known and has its reason is kept apart.
#pragma once

#include <QString>
#include <QWidget>
#include <span>
#include <string>
#include <vector>

namespace kestrava::accessibility {

/// Something that a rule would find, and that is meant. An empty control stands for all of the window.
struct KnownException {
  const char* window;
  const char* control;
  const char* missing;  ///< begins like the finding
  const char* reason;
};
std::span<const KnownException> KnownExceptions();

/// One window, or one page of it, as it stands before the user.
struct Visit {
  QString window;
  QWidget& root;
};

class Findings {
 public:
  explicit Findings(std::span<const KnownException> known = {}) : known_(known) {}

  void Add(const Visit& visit, const QString& control, const QString& missing);
  void Add(const Visit& visit, const QWidget& control, const QString& missing);
  const std::vector<std::string>& Lines() const { return lines_; }

 private:
  std::span<const KnownException> known_;
  std::vector<std::string> lines_;
};

/// Class and object name, and the text where there is one.
QString Described(const QWidget& control);

}  // namespace kestrava::accessibility
