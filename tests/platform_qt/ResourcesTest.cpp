// What the programs with windows carry in themselves besides pictures.
#include <QFile>

#include <gtest/gtest.h>

namespace kestrava {
namespace {

TEST(Resources, TheListOfCitiesIsCarriedByteForByte) {
  QFile carried(":/places/cities.txt");
  QFile made(KESTRAVA_SOURCE_DIR "data/places/cities.txt");
  ASSERT_TRUE(carried.open(QIODevice::ReadOnly));
  ASSERT_TRUE(made.open(QIODevice::ReadOnly));
  const QByteArray bytes = made.readAll();
  EXPECT_GT(bytes.size(), 100000);
  EXPECT_EQ(carried.readAll(), bytes);
}

}  // namespace
}  // namespace kestrava
