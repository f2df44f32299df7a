// The tour: opens every window there is, waits until it is painted, saves a picture of each, and closes the launcher.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace kestrava::app {

class Tour : public QObject {
 public:
  /// @param folder  where the pictures go; made if it is not there
  /// @param windows  names of all registered windows
  Tour(const std::string& folder, const std::vector<std::string>& windows);

  /// Every picture was taken and saved.
  bool Complete() const { return complete_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Stop {
    QString picture;                 ///< name of the picture, without its ending
    std::function<QWidget*()> open;  ///< shows something and tells which widget to wait for
  };

  void PlanWindow(const std::string& name);
  void PlanMenu(const std::string& menu, int button);
  void NextStop();
  void LookAgain();
  void TakePicture();
  bool Save(QWidget& widget, const QString& picture);
  bool SaveMenusOf(QWidget& window, const QString& picture);
  void GiveUp();
  void End(bool complete);

  QString folder_;
  std::deque<Stop> stops_;
  QPointer<QWidget> subject_;
  bool splashSaved_ = false;
  bool started_ = false;  ///< the launcher has come up
  bool complete_ = false;
  QTimer patience_;  ///< a window that never paints ends the tour
  QTimer calm_;      ///< no paint for a moment: the picture is whole
};

}  // namespace kestrava::app
