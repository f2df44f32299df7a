#include "platform/qt/TextViewer.h"

#include <QTextBrowser>
#include <QVBoxLayout>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Links.h"
#include "platform/Text.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

TextViewer::TextViewer() : StationWindow(kName) {
  setWindowTitle("Kestrava - Text");
  resize(760, 640);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  text_ = Named(new QTextBrowser(this), "IPtext", "Text of the page");
  text_->document()->setDocumentMargin(14);
  text_->setOpenExternalLinks(false);
  text_->setOpenLinks(false);
  connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    if (link.scheme().isEmpty()) {
      text_->scrollToAnchor(link.fragment());
    } else {
      OpenLink(FromQt(link.toString(QUrl::FullyEncoded)));
    }
  });
  layout->addWidget(text_);
  ApplySkin();
}

void TextViewer::SetTag(std::string_view tag) {
  StationWindow::SetTag(tag);
  ShowFile(std::filesystem::path(std::string(tag)));
}

bool TextViewer::ShowFile(const std::filesystem::path& file) {
  const QString name = ToQt(file.filename().string());
  setWindowTitle("Kestrava - " + name);
  try {
    const QString content = ToQt(ToUtf8(TheFiles().Read(file)));
    if (name.endsWith(".html", Qt::CaseInsensitive) || name.endsWith(".htm", Qt::CaseInsensitive)) {
      text_->setHtml(content);
    } else {
      text_->setPlainText(content);
    }
    return true;
  } catch (const Fault& fault) {
    text_->setPlainText("The file " + ToQt(file.string()) + " could not be read: " + ToQt(fault.what()) + '.');
    return false;
  }
}

}  // namespace kestrava::platform::qt
