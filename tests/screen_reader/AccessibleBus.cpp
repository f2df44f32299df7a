#include "AccessibleBus.h"

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QDBusVariant>
#include <stdexcept>

namespace kestrava::screen_reader {

namespace {

constexpr const char* kAccessible = "org.a11y.atspi.Accessible";
constexpr int kAnswerMs = 5000;

QDBusMessage Ask(const QDBusConnection& bus, const Shown& shown, const char* interface, const char* method,
                 const QVariantList& arguments = {}) {
  QDBusMessage call = QDBusMessage::createMethodCall(shown.service, shown.path, interface, method);
  call.setArguments(arguments);
  return bus.call(call, QDBus::Block, kAnswerMs);
}

/// The session says where the bus of assistive technology is.
QDBusConnection JoinBus() {
  const QDBusConnection session = QDBusConnection::sessionBus();
  const Shown launcher{"org.a11y.Bus", "/org/a11y/bus"};
  Ask(session, launcher, "org.freedesktop.DBus.Properties", "Set",
      {"org.a11y.Status", "IsEnabled", QVariant::fromValue(QDBusVariant(true))});
  const QDBusReply<QString> address = Ask(session, launcher, "org.a11y.Bus", "GetAddress");
  if (!address.isValid())
    throw std::runtime_error("no accessibility bus (packages dbus, at-spi2-core): " +
                             address.error().message().toStdString());
  return QDBusConnection::connectToBus(address.value(), "accessibility");
}

}  // namespace

AccessibleBus::AccessibleBus() : bus_(JoinBus()) {}

Shown AccessibleBus::Desktop() const {
  return {"org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"};
}

std::vector<Shown> AccessibleBus::ChildrenOf(const Shown& shown) const {
  std::vector<Shown> children;
  const QDBusMessage answer = Ask(bus_, shown, kAccessible, "GetChildren");
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return children;  // gone meanwhile
  const auto list = answer.arguments().front().value<QDBusArgument>();
  list.beginArray();
  while (!list.atEnd()) {
    Shown child;
    QDBusObjectPath path;
    list.beginStructure();
    list >> child.service >> path;
    list.endStructure();
    child.path = path.path();
    children.push_back(child);
  }
  list.endArray();
  return children;
}

QString AccessibleBus::NameOf(const Shown& shown) const {
  const QDBusReply<QDBusVariant> name =
      Ask(bus_, shown, "org.freedesktop.DBus.Properties", "Get", {kAccessible, "Name"});
  return name.isValid() ? name.value().variant().toString() : QString();
}

QString AccessibleBus::RoleOf(const Shown& shown) const {
  const QDBusReply<QString> role = Ask(bus_, shown, kAccessible, "GetRoleName");
  return role.isValid() ? role.value() : QString();
}

void AccessibleBus::Press(const Shown& shown) const {
  QDBusMessage call = QDBusMessage::createMethodCall(shown.service, shown.path, "org.a11y.atspi.Action", "DoAction");
  call.setArguments({0});
  bus_.call(call, QDBus::NoBlock);
}

std::optional<Shown> AccessibleBus::Find(const Shown& below, const Wanted& wanted, int generations) const {
  if (NameOf(below) == wanted.name && RoleOf(below) == wanted.role) return below;
  if (generations == 0) return std::nullopt;
  for (const Shown& child : ChildrenOf(below))
    if (auto found = Find(child, wanted, generations - 1)) return found;
  return std::nullopt;
}

QString AccessibleBus::Page(const Shown& below, int indent) const {
  QString page = QString(2 * indent, ' ') + RoleOf(below) + " \"" + NameOf(below) + "\"\n";
  if (indent >= kAnything) return page;
  for (const Shown& child : ChildrenOf(below)) page += Page(child, indent + 1);
  return page;
}

}  // namespace kestrava::screen_reader
