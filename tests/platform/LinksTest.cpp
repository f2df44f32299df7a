#include "platform/Links.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Links = testing::House;

TEST_F(Links, WebAndMailAddressesAreOpenedAsTheyStand) {
  for (const char* link :
       {"https://club.example/", "http://club.example:8080/a?b=c", "mailto:me@club.example", "HTTPS://A.B"}) {
    EXPECT_EQ(TargetOfLink(link), link);
  }
  EXPECT_EQ(TargetOfLink("www.club.example/passes"), "https://www.club.example/passes");
}

TEST_F(Links, AFileOfTheFolderIsOpenedByItsWholePath) {
  Put("notes.html", "x");
  for (const char* link : {"notes.html", "./notes.html", "/house/notes.html", "file:///house/notes.html"}) {
    EXPECT_EQ(TargetOfLink(link), "/house/notes.html") << link;
  }
}

TEST_F(Links, NothingElseIsOpened) {
  files.Put("/elsewhere/run.desktop", "x");
  for (const char* link : {"file:///elsewhere/run.desktop", "/elsewhere/run.desktop", "../elsewhere/run.desktop",
                           "javascript:alert(1)", "data:text/html,x", "ftp://club.example/", "vnc://club.example/",
                           "ssh:club.example", "none", "", "C:\\x.exe", "file:///house/../elsewhere/run.desktop"}) {
    EXPECT_EQ(TargetOfLink(link), std::nullopt) << link;
  }
}

TEST_F(Links, WhatIsNotOpenedIsSaid) {
  messages.ExpectMessage("The link \"ssh:club.example\" was not opened");
  OpenLink("ssh:club.example");
  EXPECT_TRUE(opener.opened.empty());
  opener.canOpen = false;
  messages.ExpectMessage("The link \"https://club.example/\" could not be opened");
  OpenLink("https://club.example/");
  opener.canOpen = true;
  OpenLink("https://club.example/");
  EXPECT_EQ(opener.opened.size(), 2U);
}

}  // namespace
}  // namespace kestrava::platform
