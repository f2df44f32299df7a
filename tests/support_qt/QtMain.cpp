// Test programs with windows need no display: they run on the toolkit's offscreen platform, on one screen of
// 1600 x 1200 without window frames, and see no face of the machine: pictures are compared with those that the program
// carries in itself.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/qt/StationApplication.h"

namespace {

constexpr const char* kScreen =
    R"({"windowFrameMargins":false,"screens":[{"name":"s0","x":0,"y":0,"width":1600,"height":1200,)"
    R"("logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";

constexpr const char* kNoFaces = "<?xml version=\"1.0\"?><fontconfig><cachedir>/nonexistent</cachedir></fontconfig>";

bool Write(const QString& path, const char* content) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(content) > 0;
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir folder;
  const QString screenFile = folder.filePath("screen.json");
  const QString facesFile = folder.filePath("faces.conf");
  if (!folder.isValid() || !Write(screenFile, kScreen) || !Write(facesFile, kNoFaces)) return 2;
  // KESTRAVA_TEST_PLATFORM=xcb shows the windows on a real desktop instead.
  const QByteArray other = qgetenv("KESTRAVA_TEST_PLATFORM");
  qputenv("QT_QPA_PLATFORM", other.isEmpty() ? "offscreen:configfile=" + screenFile.toLocal8Bit() : other);
  qputenv("FONTCONFIG_FILE", facesFile.toLocal8Bit());
  qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit());
  qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit());
  qputenv("QT_SCALE_FACTOR", qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toLocal8Bit());
  const kestrava::platform::qt::StationApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
