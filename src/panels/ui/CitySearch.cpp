#include "panels/ui/CitySearch.h"

#include <QAbstractItemView>
#include <QFile>

#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

using platform::qt::FromQt;
using platform::qt::ToQt;

namespace {

constexpr const char* kCityList = ":/places/cities.txt";
constexpr int kMostHits = 8;

}  // namespace

const std::vector<store::City>& ShippedCities() {
  static const std::vector<store::City> cities = [] {
    QFile list(kCityList);
    const QByteArray text = list.open(QIODevice::ReadOnly) ? list.readAll() : QByteArray();
    return store::ReadCities({text.constData(), static_cast<std::size_t>(text.size())});
  }();
  return cities;
}

CitySearch::CitySearch(QWidget* parent) : QLineEdit(parent), completer_(new QCompleter(&model_, this)) {
  completer_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);  // what fits is the list's own business
  completer_->setMaxVisibleItems(kMostHits);
  completer_->setWidget(this);
  completer_->setWrapAround(false);  // the last hit is the end: Down does not leave the list without one
  completer_->popup()->setObjectName("CityHits");
  completer_->popup()->setAccessibleName(tr("Cities found"));
  connect(this, &QLineEdit::textEdited, this, &CitySearch::Search);
  connect(this, &QLineEdit::returnPressed, this, [this] {
    Choose(Popup()->isVisible() && Popup()->currentIndex().isValid() ? Popup()->currentIndex().row() : 0);
  });
  connect(completer_, qOverload<const QModelIndex&>(&QCompleter::activated), this,
          [this](const QModelIndex& index) { Choose(index.row()); });
}

void CitySearch::Search(const QString& typed) {
  hits_ = store::FindCities(cities_ ? *cities_ : ShippedCities(), FromQt(typed), kMostHits);
  QStringList texts;
  for (const store::City* city : hits_) texts << ToQt(store::CityText(*city));
  model_.setStringList(texts);
  if (hits_.empty()) {
    Popup()->hide();
  } else {
    completer_->complete();
    Popup()->setCurrentIndex(completer_->completionModel()->index(0, 0));
  }
  emit Searched(typed.trimmed().isEmpty() ? -1 : static_cast<int>(hits_.size()));
}

/// A hit is taken once: the list of hits tells of a Return too, behind the box itself.
void CitySearch::Choose(int hit) {
  if (hit < 0 || hit >= static_cast<int>(hits_.size())) return;
  const store::City& city = *hits_[static_cast<std::size_t>(hit)];
  hits_.clear();
  Popup()->hide();
  setText(ToQt(store::CityText(city)));
  selectAll();
  emit Chosen(city);
}

}  // namespace kestrava::panels::ui
