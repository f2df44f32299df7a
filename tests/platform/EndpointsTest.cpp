#include <string>

#include <gtest/gtest.h>

#include "platform/Endpoints.h"

namespace kestrava::platform::endpoints {
namespace {

TEST(Endpoints, AnElementFileHasTheServersHostAndPathAndNoScheme) {
  EXPECT_EQ(ElementAddress("amateur.txt"), std::string(kElementServer) + "/NORAD/elements/amateur.txt");
}

TEST(Endpoints, WordsOfASearchArePartedByPlusSigns) {
  EXPECT_EQ(SearchAddress("ISS (ZARYA) satellite"), std::string(kSearchStart) + "ISS+(ZARYA)+satellite");
}

TEST(Endpoints, WhatMeansSomethingInAnAddressIsEscapedInASearch) {
  EXPECT_EQ(SearchAddress("A+B&c=#1%"), std::string(kSearchStart) + "A%2BB%26c%3D%231%25");
  EXPECT_EQ(SearchAddress("\xC3\xA9"), std::string(kSearchStart) + "%C3%A9");
}

TEST(Endpoints, WhileTheMakerHasNoServerThereIsNoHelpPageOfHis) {
  ASSERT_TRUE(kMakerServer.empty());
  EXPECT_EQ(HelpAddress(), "");
  EXPECT_EQ(HelpAddress("maker.example"), "https://maker.example/faq.html");
}

TEST(Endpoints, WhileTheMakerHasNoAddressThereIsNoLetterToHim) {
  ASSERT_TRUE(kMakerMail.empty());
  EXPECT_EQ(MailAddress("Satellite Info Request for AO-07"), "");
}

TEST(Endpoints, ALetterHasItsSubjectEscaped) {
  EXPECT_EQ(MailAddress("About A&B_1", "maker@kestrava.example"),
            "mailto:maker@kestrava.example?subject=About%20A%26B_1");
}

}  // namespace
}  // namespace kestrava::platform::endpoints
