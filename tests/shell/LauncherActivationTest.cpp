#include "orbit/TimeHelpers.h"
#include "platform/Format.h"

#include "LauncherRig.h"

namespace kestrava::shell {
namespace {

using platform::Fault;
using platform::MakeSerial;
using Strings = std::vector<std::string>;

class LauncherActivation : public LauncherRig {
 protected:
  LauncherSetup SetupWithShipped() {
    LauncherSetup setup = NewSetup();
    setup.shipped = &shipped;
    return setup;
  }
  /// A launcher that has been loaded, with the element file of the first group dated so.
  Launcher& Loaded(const platform::DateParts& fileDate = {2024, 5, 30, 12, 0, 0}) {
    files.SetModifiedUtc("/house/amateur.txt", MakeSerial(fileDate));
    launcher_.Load();
    TakeFaults();
    return launcher_;
  }
  FakeShipped shipped;

 private:
  Launcher launcher_{view, tables, SetupWithShipped()};
};

TEST_F(LauncherActivation, SaysThatTheElementsAreForDemonstrationWhileTheFirstGroupsAreTheShippedOnes) {
  Launcher& launcher = Loaded();
  launcher.Activate();
  EXPECT_TRUE(view.demonstration);
  shipped.elements = "weather.txt";  // another group's are no reason
  launcher.Activate();
  EXPECT_FALSE(view.demonstration);
}

TEST_F(LauncherActivation, ShippedFilesThatCannotBeReadDoNotEndTheRun) {
  shipped.broken = true;
  Loaded().Activate();
  EXPECT_FALSE(view.demonstration);
}

TEST_F(LauncherActivation, TellsTheAgeOfTheFirstGroupsElements) {
  Loaded({2024, 5, 29, 12, 0, 0}).Activate();
  EXPECT_EQ(Label(LauncherLabel::kKepAge), "Keplerian Elements Last Updated 3 Days Ago");
}

TEST_F(LauncherActivation, AgeOneIsYesterdayAndAgeTwoANumber) {
  Loaded({2024, 5, 31, 12, 0, 0}).Activate();
  EXPECT_EQ(Label(LauncherLabel::kKepAge), "Keplerian Elements Were Updated Yesterday");
}

TEST_F(LauncherActivation, AFileDateAheadIsReadWithDayAndMonthSwapped) {
  clock.SetUtc({2024, 3, 14, 13, 0, 0});
  Loaded({2024, 11, 3, 8, 0, 0}).Activate();  // 11 March
  EXPECT_EQ(Label(LauncherLabel::kKepAge), "Keplerian Elements Last Updated 3 Days Ago");
}

TEST_F(LauncherActivation, ASwapThatStillLiesAheadLeavesTheLabelAsItWas) {
  Launcher& launcher = Loaded({2024, 12, 12, 12, 0, 0});
  view.labels[LauncherLabel::kKepAge] = "as it was";
  launcher.Activate();
  EXPECT_EQ(Label(LauncherLabel::kKepAge), "as it was");
}

TEST_F(LauncherActivation, AMissingElementFileOfTheFirstGroupIsNotTrapped) {
  Launcher& launcher = Loaded();
  files.Remove("/house/amateur.txt");
  try {
    launcher.Activate();
    FAIL() << "the fault was trapped";
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "File not found");
    const FatalReport report = launcher.DescribeFault(fault);
    EXPECT_EQ(report.fault, "File not found");
    EXPECT_NE(report.subject.find("/house/amateur.txt"), std::string::npos) << report.subject;
    EXPECT_EQ(report.missingFile, "amateur.txt");
  }
  EXPECT_TRUE(ErrorLog().empty());
}

TEST_F(LauncherActivation, FavouritesThatAMissingElementFileMadeUnknownComeBackWithTheEndOfTheRun) {
  const std::string before = "ISS (ZARYA)\r\n\r\nNOAA 19\r\n";
  Put("faves.dat", before);
  files.Remove("/house/amateur.txt");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_NE(Content("faves.dat"), before);
  launcher.BringFavouritesBack();
  EXPECT_EQ(Content("faves.dat"), before);
  TakeFaults();
}

TEST_F(LauncherActivation, AFirstGroupWithoutAFileNameIsNotTrappedAndNamesTheFileOfGroups) {
  Put("groups.dat", "Nameless,,1\n");
  Launcher& launcher = Loaded();
  try {
    launcher.Activate();
    FAIL() << "the fault was trapped";
  } catch (const Fault& fault) {
    const FatalReport report = launcher.DescribeFault(fault);
    EXPECT_NE(report.subject.find("/house/groups.dat"), std::string::npos) << report.subject;
    EXPECT_EQ(report.missingFile, "");
  }
}

TEST_F(LauncherActivation, APlaceThatIsNoNumberIsNotTrappedAndNamesTheSetting) {
  settings.Set("Longitude", "far west");
  Launcher& launcher = Loaded();
  try {
    launcher.Activate();
    FAIL() << "the fault was trapped";
  } catch (const Fault& fault) {
    const FatalReport report = launcher.DescribeFault(fault);
    EXPECT_EQ(report.fault, "Type mismatch");
    EXPECT_NE(report.subject.find("Longitude holds \"far west\""), std::string::npos) << report.subject;
    EXPECT_NE(report.remedy.find("/config/settings.conf"), std::string::npos) << report.remedy;
  }
}

TEST_F(LauncherActivation, ALatitudeBeyondAPoleIsToldOnceAndTakenAsThePole) {
  settings.Set("Latitude", "999");
  Launcher& launcher = Loaded();
  EXPECT_EQ(engines[0]->ObserverLatitude(), 90) << "the load takes it so as well";
  launcher.Activate();
  launcher.Activate();
  for (const orbit::OrbitEngine* engine : engines) EXPECT_EQ(engine->ObserverLatitude(), 90);
  const std::string complaint = "The stored latitude is 999, which is no place on the Earth: 90 is taken";
  EXPECT_EQ(TakeFaults(), Strings{complaint + " - LauncherLoadAllSettings"});
  messages.ExpectMessage(complaint + ".\n\nStore your place in Settings, Locations.");
  eventLoop.Advance(1);
  EXPECT_EQ(settings.Get("Latitude"), "999") << "it is the user's to correct";
}

TEST_F(LauncherActivation, ALongitudeBeyondATurnIsToldAndTakenAsWhatIsLeftOfIt) {
  settings.Set("Longitude", "730");
  Loaded().Activate();
  EXPECT_EQ(orbit::Engine->ObserverLongitude(), 350);
  EXPECT_EQ(TakeFaults().size(), 1U);
  messages.ExpectMessage("The stored longitude is 730, which is no place on the Earth: 10 is taken");
  eventLoop.Advance(1);
}

TEST_F(LauncherActivation, PolesAndWholeTurnsArePlaces) {
  Launcher& launcher = Loaded();
  for (const char* latitude : {"90", "-90"}) {
    settings.Set("Latitude", latitude);
    settings.Set("Longitude", "360");
    launcher.Activate();
  }
  settings.Set("Longitude", "-5");
  launcher.Activate();
  EXPECT_EQ(orbit::Engine->ObserverLongitude(), 365) << "5 degrees east, by whoever wrote it so";
}

TEST_F(LauncherActivation, ADamagedLineDoesNotFillTheScreen) {
  settings.Set("Longitude", std::string(100000, 'x'));
  Launcher& launcher = Loaded();
  EXPECT_THROW(launcher.Activate(), Fault);
  EXPECT_LT(launcher.DescribeFault(Fault::TypeMismatch()).subject.size(), 300U);
  settings.Set("Longitude", "0");
  tables.GroupList[1].Address = std::string(100000, 'x');
  EXPECT_THROW(launcher.Activate(), Fault);
  EXPECT_LT(launcher.DescribeFault(Fault::FileNotFound()).subject.size(), 300U);
}

TEST_F(LauncherActivation, BringsAChangedPlaceToTheGlobalEngine) {
  Launcher& launcher = Loaded();
  settings.Set("Latitude", "-33.5");
  settings.Set("Longitude", "209");
  settings.Set("HASL", "41");
  launcher.Activate();
  for (const orbit::OrbitEngine* engine : engines) {
    EXPECT_EQ(engine->ObserverLatitude(), -33.5);
    EXPECT_EQ(engine->ObserverLongitude(), 151);
    EXPECT_EQ(engine->ObserverHeight(), 41);
  }
}

TEST_F(LauncherActivation, TakesThePlaceToSixDecimals) {
  Launcher& launcher = Loaded();
  settings.Set("Latitude", "51.12345678");
  launcher.Activate();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), 51.123457);
}

TEST_F(LauncherActivation, LongitudeZeroReachesTheEngineAs360) {
  Loaded().Activate();
  EXPECT_EQ(orbit::Engine->ObserverLongitude(), 360);
}

TEST_F(LauncherActivation, ReadsThePlaceUnderTheCommaRule) {
  locale.UseComma();
  settings.Set("Latitude", "48.25");
  Loaded().Activate();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), 48.25);
}

TEST_F(LauncherActivation, ReadsTheNameOfTheLocation) {
  Launcher& launcher = Loaded();
  settings.Set("Location Name", "Hilltop");
  launcher.Activate();
  EXPECT_EQ(tables.LocationName, "Hilltop");
}

TEST_F(LauncherActivation, TellsSunriseSunsetAndTheLengthOfTheDay) {
  settings.Set("Latitude", "52");
  Loaded().Activate();
  const orbit::Sky sky{tables, *orbit::Engine};
  const auto rise = orbit::TodaySunrise(sky);
  const auto set = orbit::TodaySunset(sky);
  EXPECT_EQ(Label(LauncherLabel::kSunrise),
            "Sunrise/Set : " + platform::Format(rise, "hh:mm") + " / " + platform::Format(set, "hh:mm"));
  const auto length = set - rise;
  EXPECT_EQ(Label(LauncherLabel::kSunshine), "Sunshine : " + std::to_string(platform::HourOf(length)) +
                                                 "h:" + std::to_string(platform::MinuteOf(length)) + "m");
  EXPECT_EQ(platform::HourOf(rise), 3);  // 1 June at 52 degrees north, Greenwich
  EXPECT_EQ(platform::HourOf(set), 20);
}

TEST_F(LauncherActivation, NeitherHoursNorMinutesOfSunshineArePadded) {
  // Towards the pole in early spring the day is short: search for one of single digits on both sides.
  settings.Set("Latitude", "66");
  for (int day = 1; day <= 31; ++day) {
    clock.SetUtc({2024, 1, day, 12, 0, 0});
    if (day == 1) {
      Loaded({2023, 12, 31, 12, 0, 0}).Activate();
    }
    const orbit::Sky sky{tables, *orbit::Engine};
    const auto length = orbit::TodaySunset(sky) - orbit::TodaySunrise(sky);
    const int hours = platform::HourOf(length);
    const int minutes = platform::MinuteOf(length);
    if (hours > 9 || minutes > 9) continue;
    Launcher again(view, tables, NewSetup());
    again.Load();
    again.Activate();
    EXPECT_EQ(Label(LauncherLabel::kSunshine), std::string("Sunshine : ") + static_cast<char>('0' + hours) +
                                                   "h:" + static_cast<char>('0' + minutes) + "m");
    return;
  }
  FAIL() << "no such day in January at 66 degrees north";
}

TEST_F(LauncherActivation, ConvertsAFreshGpsFile) {
  Put("gps-ops.txt", "GPS BIIR-2  (PRN 13)\n1 x\n2 y\n");
  Loaded().Activate();
  EXPECT_EQ(Content("gps-ops.txt"), "GPS PRN 13\n1 x\n2 y\n");
}

class SplashStub : public platform::Window {
 public:
  void Show() override { shown_ = true; }
  void Hide() override { shown_ = false; }
  bool IsVisible() const override { return shown_; }

 private:
  bool shown_ = false;
};

TEST_F(LauncherActivation, UnloadsTheSplash) {
  windows->Register("frmSplash", [] { return std::make_unique<SplashStub>(); });
  windows->Show("frmSplash");
  Loaded().Activate();
  EXPECT_EQ(windows->Find("frmSplash"), nullptr);
}

TEST_F(LauncherActivation, ClocksOffHidesTheClock) {
  settings.Set("LEDclocks", "0");
  Loaded().Activate();
  EXPECT_FALSE(view.clock.visible);
  EXPECT_EQ(Label(LauncherLabel::kClock), "Clocks Off");
}

TEST_F(LauncherActivation, TheClockShowsLocalTimeByDefault) {
  Launcher& launcher = Loaded();
  view.clock.visible = false;
  view.clock.utc = true;
  launcher.Activate();
  EXPECT_TRUE(view.clock.visible);
  EXPECT_FALSE(view.clock.utc);
  EXPECT_EQ(Label(LauncherLabel::kClock), "Local Time");
  EXPECT_EQ(settings.Get("LEDclocks"), "1");
}

TEST_F(LauncherActivation, TheClockShowsUniversalTimeForTwo) {
  settings.Set("LEDclocks", "2");
  Loaded().Activate();
  EXPECT_TRUE(view.clock.visible);
  EXPECT_TRUE(view.clock.utc);
  EXPECT_EQ(Label(LauncherLabel::kClock), "UTC Time");
}

TEST_F(LauncherActivation, AnotherClockModeChangesNothing) {
  settings.Set("LEDclocks", "7");
  Launcher& launcher = Loaded();
  view.clock.visible = false;
  view.clock.utc = true;
  view.labels[LauncherLabel::kClock] = "as it was";
  launcher.Activate();
  EXPECT_FALSE(view.clock.visible);
  EXPECT_TRUE(view.clock.utc);
  EXPECT_EQ(Label(LauncherLabel::kClock), "as it was");
}

TEST_F(LauncherActivation, ClocksOffComesBackWithinASecondWhileTheLauncherIsAlone) {
  settings.Set("LEDclocks", "0");
  Launcher& launcher = Loaded();
  launcher.Activate();
  ASSERT_FALSE(view.clock.visible);
  launcher.Timer1Tick();
  EXPECT_TRUE(view.clock.visible);
}

TEST_F(LauncherActivation, TheClockHidesWhileAnotherWindowIsVisible) {
  windows->Register("One", [] { return std::make_unique<SplashStub>(); });
  windows->Register("Two", [] { return std::make_unique<SplashStub>(); });
  Launcher& launcher = Loaded();
  windows->Show("One");
  launcher.Timer1Tick();
  EXPECT_TRUE(view.clock.visible);
  windows->Show("Two");
  launcher.Timer1Tick();
  EXPECT_FALSE(view.clock.visible);
}

TEST_F(LauncherActivation, ALoadedButHiddenWindowDoesNotCount) {
  windows->Register("One", [] { return std::make_unique<SplashStub>(); });
  windows->Register("Two", [] { return std::make_unique<SplashStub>(); });
  Launcher& launcher = Loaded();
  windows->Show("One");
  windows->IsVisible("Two");
  launcher.Timer1Tick();
  EXPECT_TRUE(view.clock.visible);
}

}  // namespace
}  // namespace kestrava::shell
