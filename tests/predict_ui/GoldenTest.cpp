// What leaves the pass window and its wizard, byte for byte: the saved text, the text on paper, and pass.dat after each
// action, with fixed clock, place and elements. KESTRAVA_WRITE_GOLDEN=1 writes them anew; what changes then needs a
// sentence in the commit.
#include <QCheckBox>
#include <QLineEdit>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/Doors.h"
#include "platform/qt/QtPrinting.h"
#include "predict/PassWizard.h"

#include "PassFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::predict::ui {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* kWeekJob = "Week\r\nISS (ZARYA);\r\nNOAA 19;\r\nMETEOSAT-10 (MS;\r\n2\r\n1\r\n1\r\n";
constexpr const char* kEveningJob = "Evening\r\nOSCAR 7 (AO-7);\r\n1\r\n0\r\n1\r\n";
constexpr const char* kOtherJob = "Other\r\nHST;\r\n7\r\n0\r\n0\r\n";

/// Sets every document on the pages of a PDF file, as a printer of the machine would.
class PaperPrinting : public platform::Printing {
 public:
  bool OpenDialog(const std::string&) override { return true; }
  bool Print(const platform::PrintDocument& document) override {
    QPdfWriter paper(Pdf());
    paper.setPageSize(QPageSize(QPageSize::A4));
    platform::qt::PrintLines(document, paper);
    return true;
  }

  /// Each line with single blanks between its words: how wide a run of blanks is depends on the machine's face.
  std::string Text() const {
    std::string text;
    for (const QString& line : QString::fromUtf8(Output("pdftotext", {"-layout", Pdf(), "-"})).split('\n')) {
      if (!line.trimmed().isEmpty()) text += line.simplified().toStdString() + "\n";
    }
    return text;
  }

  QImage FirstPage() const {
    Output("pdftoppm", {"-png", "-r", "72", "-f", "1", "-l", "1", "-singlefile", Pdf(), folder_.filePath("page")});
    return QImage(folder_.filePath("page.png"));
  }

 private:
  QString Pdf() const { return folder_.filePath("passes.pdf"); }
  static QByteArray Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " (package poppler-utils)";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
  }

  QTemporaryDir folder_;
};

class PassGolden : public PassFixture {
 protected:
  PassGolden() { clock.SetOffsetHours(1); }

  static void Compare(const std::string& content, const std::string& name) {
    const std::string path = KESTRAVA_TEST_DATA "golden/passwindow/" + name;
    if (std::getenv("KESTRAVA_WRITE_GOLDEN")) std::ofstream(path, std::ios::binary) << content;
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path;
    std::ostringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ(content, golden.str()) << name;
  }

  /// Opens the window and runs the job of a week, from the 16th on, to its end.
  QWidget& RunWeekAndSave() {
    Put("pass.dat", kWeekJob);
    QWidget& window = Open();
    PickDay(window, 2026, 11, 16);
    Select(window, "ListPresets", 0);
    fileChooser.ExpectSave("/documents/week.txt");
    messages.ExpectMessage("Predictions saved as /documents/week.txt");
    Click(window, "PresetGo");
    return window;
  }

  QWidget& Wizard() { return dynamic_cast<QWidget&>(*windows->Find(kWizardWindow)); }
  /// Opens the wizard empty and fills a job of the space station in.
  QWidget& FillWizard(QWidget& window, const char* name, const char* days) {
    Click(window, "PresetAdd");
    HandleEvents();
    QWidget& wizard = Wizard();
    Type(wizard, "Tname", name);
    Type(wizard, "Tnumofdays", days);
    Choose(wizard, "COMgroup", "Space Stations");
    Choose(wizard, "COMsatname", "ISS (ZARYA)");
    Click(wizard, "BUTadd");
    return wizard;
  }
  /// Takes a row of the list into the wizard.
  QWidget& Edit(QWidget& window, int row) {
    Select(window, "ListPresets", row);
    Click(window, "BUTeditjob");
    HandleEvents();
    return Wizard();
  }
};

TEST_F(PassGolden, TheTextThatAJobSavesIsAsItWas) {
  PaperPrinting paper;
  platform::Doors doors = platform::TheDoors();
  doors.printing = &paper;
  const platform::ScopedDoors withPaper(doors);
  RunWeekAndSave();
  Compare(files.Content("/documents/week.txt"), "saved.txt");
}

TEST_F(PassGolden, TheTextOnThePaperOfAJobAndOfASortedListIsAsItWas) {
  PaperPrinting paper;
  platform::Doors doors = platform::TheDoors();
  doors.printing = &paper;
  const platform::ScopedDoors withPaper(doors);
  QWidget& window = RunWeekAndSave();
  Compare(paper.Text(), "printed.txt");
  testing::SaveShot(paper.FirstPage(), "pass-paper");
  Click(window, "BUTsortChron");
  Click(window, "BUTprint");
  Compare(paper.Text(), "printed-sorted.txt");
}

TEST_F(PassGolden, TheSavedTextOfASortedListIsAsItWas) {
  printing.ExpectDialog();
  QWidget& window = RunWeekAndSave();
  Click(window, "BUTsortChron");
  fileChooser.ExpectSave("/documents/week.txt");
  messages.ExpectMessage("Predictions saved as /documents/week.txt");
  Click(window, "BUTsaveresults");
  Compare(files.Content("/documents/week.txt"), "saved-sorted.txt");
}

TEST_F(PassGolden, AnEmptyListIsSavedAsItWas) {
  QWidget& window = Open();
  fileChooser.ExpectSave(std::nullopt);
  messages.ExpectMessage("Predictions saved as /documents/Kestrava.txt");
  Click(window, "BUTsaveresults");
  Compare(files.Content("/documents/Kestrava.txt"), "saved-empty.txt");
}

TEST_F(PassGolden, TheJobFileAfterJobsWereAdded) {
  QWidget& window = Open();
  QWidget& first = FillWizard(window, "  Week ", " 3");
  Choose(first, "COMsatname", "TIANGONG-2");
  Click(first, "BUTadd");
  Child<QCheckBox>(first, "CHsave").click();
  Click(first, "BUTSaveJob");
  Compare(Content("pass.dat"), "jobs-added-one.dat");
  QWidget& second = FillWizard(window, "Evening", "1");
  Child<QCheckBox>(second, "CHprint").click();
  Click(second, "BUTSaveJob");
  Click(FillWizard(window, "Week", "5"), "BUTSaveJob");
  EXPECT_EQ(Jobs(window), (Strings{"Week", "Evening", "Week"})) << "one of the same name is another one";
  Compare(Content("pass.dat"), "jobs-added-three.dat");
}

TEST_F(PassGolden, TheJobFileWhileAndAfterAJobWasEdited) {
  Put("pass.dat", std::string(kWeekJob) + kEveningJob + kOtherJob);
  QWidget& window = Open();
  QWidget& wizard = Edit(window, 0);
  Compare(Content("pass.dat"), "jobs-in-edit.dat");
  Child<QLineEdit>(wizard, "Tnumofdays").clear();
  Type(wizard, "Tnumofdays", "14");
  Select(wizard, "SatList", 1);
  Click(wizard, "BUTremove");
  Child<QCheckBox>(wizard, "CHprint").click();
  Click(wizard, "BUTSaveJob");
  EXPECT_EQ(Jobs(window), (Strings{"Evening", "Other", "Week"}));
  Compare(Content("pass.dat"), "jobs-edited.dat");
}

TEST_F(PassGolden, TheJobFileAfterAnEditWasCancelled) {
  Put("pass.dat", std::string(kWeekJob) + kEveningJob + kOtherJob);
  QWidget& window = Open();
  QWidget& wizard = Edit(window, 1);
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", false);
  Click(wizard, "BUTcancel");
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", true);
  Click(wizard, "BUTcancel");
  EXPECT_EQ(Jobs(window), (Strings{"Week", "Other"}));
  Compare(Content("pass.dat"), "jobs-edit-cancelled.dat");
}

TEST_F(PassGolden, TheJobFileAfterJobsWereDeleted) {
  Put("pass.dat", std::string(kWeekJob) + kEveningJob + kOtherJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 1);
  Click(window, "PresetDelete");
  Compare(Content("pass.dat"), "jobs-deleted-one.dat");
  for (int i = 0; i < 2; ++i) {
    Select(window, "ListPresets", 0);
    Click(window, "PresetDelete");
  }
  EXPECT_TRUE(Jobs(window).empty());
  EXPECT_TRUE(files.Exists("/house/pass.dat"));
  Compare(Content("pass.dat"), "jobs-deleted-all.dat");
}

TEST_F(PassGolden, TheJobFileWithABlankLineBetweenItsRecords) {
  Put("pass.dat", std::string(kWeekJob) + "\r\n" + kEveningJob + " \r\n" + kOtherJob);
  QWidget& window = Open();
  EXPECT_EQ(Jobs(window), Strings{"Week"}) << "what stands behind the blank line is not listed";
  Click(FillWizard(window, "Added", "1"), "BUTSaveJob");
  Compare(Content("pass.dat"), "jobs-blank-added.dat");
  Select(window, "ListPresets", 0);
  Click(window, "PresetDelete");
  Compare(Content("pass.dat"), "jobs-blank-deleted.dat");
  EXPECT_EQ(Jobs(window), Strings{"Added"});
  CloseByUser(window);
  EXPECT_EQ(Jobs(Open()), (Strings{"Evening", "Other", "Added"})) << "the next load lists them again";
}

TEST_F(PassGolden, TheJobFileWithTwoJobsOfOneName) {
  const std::string namesake = "Week\r\nHST;\r\n9\r\n0\r\n0\r\n";
  Put("pass.dat", kWeekJob + namesake + kOtherJob);
  QWidget& window = Open();
  QWidget& wizard = Edit(window, 1);
  EXPECT_EQ(Child<QLineEdit>(wizard, "Tnumofdays").text(), "2") << "the first of the file, whichever row is selected";
  Compare(Content("pass.dat"), "jobs-namesake-in-edit.dat");
  Click(wizard, "BUTSaveJob");
  Compare(Content("pass.dat"), "jobs-namesake-edited.dat");
}

}  // namespace
}  // namespace kestrava::predict::ui
