// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <set>
#include <string>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QString>
#include <QUrl>
#include <gtest/gtest.h>

#include "tests/contract/contract_table.h"
#include "tests/help/help_page.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

QString ReadAll(const QString& name) {
  QFile file(HelpFile(name));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
  return QString::fromUtf8(file.readAll());
}

// Whether there is such a file, with the place that the link names after a "#".
bool LeadsSomewhere(const QString& link) {
  const QString file = link.section(u'#', 0, 0);
  const QString place = link.section(u'#', 1);
  const QString page = file.section(u".html"_s, 0, 0);
  return QFileInfo::exists(HelpFile(file)) &&
         (place.isEmpty() || ReadHelpPage(page).anchors.contains(place));
}

class AnyPage : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    page = ReadHelpPage(QString::fromStdString(GetParam()));
    ASSERT_EQ(page.error.toStdString(), "");
  }

  HelpPage page;
};

TEST_P(AnyPage, IsTitledByItsHeading) {
  EXPECT_FALSE(page.heading.isEmpty());
  EXPECT_TRUE(page.title.startsWith(page.heading)) << page.title.toStdString();
}

TEST_P(AnyPage, LeadsBackToTheFirstPage) {
  EXPECT_EQ(page.links.contains(u"index.html"_s), GetParam() != "index");
}

TEST_P(AnyPage, EveryLinkLeadsSomewhere) {
  for (const auto& link : page.links) {
    EXPECT_TRUE(LeadsSomewhere(link)) << link.toStdString();
  }
}

TEST_P(AnyPage, EveryPictureCanBeReadOut) {
  EXPECT_EQ(page.picturesWithoutAlt.join(u' ').toStdString(), "");
}

TEST_P(AnyPage, ShowsItsWindow) {
  const QString window = GetParam() == "index" ? u"MainProg"_s : QString::fromStdString(GetParam());
  EXPECT_TRUE(page.pictures.contains(u"pictures/"_s + window + u".png"_s));
}

TEST_P(AnyPage, IsAboutAWindowThatTheReadmeDescribes) {
  if (GetParam() != "index") {
    EXPECT_TRUE(ReadAll(u"../README.md"_s).contains(u"- **"_s + page.heading + u"**"_s));
  }
}

TEST_P(AnyPage, SaysWhatSystemItIsWrittenIn) {
  EXPECT_TRUE(ReadAll(QString::fromStdString(GetParam()) + u".html"_s)
                  .contains(u"content=\"text/html; charset=utf-8\""_s));
}

// "DivX" for "DivX(0)": a page explains an array as a whole.
std::string StemOf(const std::string& name) { return name.substr(0, name.find('(')); }

TEST_P(AnyPage, ExplainsEveryControlThatIsUsedAndNoOther) {
  const std::set<Kind> used{Kind::Button, Kind::PictureButton, Kind::CheckBox,
                            Kind::Option, Kind::Field,         Kind::List,
                            Kind::Choice, Kind::Slider,        Kind::Link};
  std::set<std::string> all;
  std::set<std::string> expected;
  for (const auto& row : RowsOf(GetParam())) {
    all.insert(StemOf(row.name));
    if (used.contains(row.kind)) {
      expected.insert(StemOf(row.name));
    }
  }
  std::set<std::string> explained;
  for (const auto& name : page.explained) {
    EXPECT_TRUE(explained.insert(name.toStdString()).second) << "twice: " << name.toStdString();
    EXPECT_TRUE(all.contains(name.toStdString())) << "no control: " << name.toStdString();
  }
  for (const auto& name : expected) {
    EXPECT_TRUE(explained.contains(name)) << "not explained: " << name;
  }
}

TEST_P(AnyPage, ProvesEveryFigureOfItsExample) {
  EXPECT_FALSE(page.unprovenText.contains(QRegularExpression(u"[0-9]"_s)))
      << page.unprovenText.toStdString();
}

TEST_P(AnyPage, IsInTheProjectTheContentsAndTheIndex) {
  const QString file = QString::fromStdString(GetParam()) + u".html"_s;
  EXPECT_TRUE(ReadAll(u"Brindle2.hhp"_s).split(u'\n').contains(file));
  EXPECT_TRUE(ReadAll(u"Brindle2.hhc"_s).contains(u"value=\""_s + file + u'"'));
  EXPECT_TRUE(ReadAll(u"Brindle2.hhk"_s).contains(u"value=\""_s + file));
}

INSTANTIATE_TEST_SUITE_P(Each, AnyPage, ::testing::ValuesIn(HelpPages()),
                         [](const auto& instance) { return instance.param; });

class Listing : public ::testing::TestWithParam<const char*> {};

TEST_P(Listing, LeadsToPagesThatThereAre) {
  const QString text = ReadAll(QString::fromLatin1(GetParam()));
  const QRegularExpression local(u"name=\"Local\" value=\"([^\"]*)"_s);
  int count = 0;
  for (auto match = local.globalMatch(text); match.hasNext(); ++count) {
    const QString link = match.next().captured(1);
    EXPECT_TRUE(LeadsSomewhere(link)) << link.toStdString();
  }
  EXPECT_GE(count, static_cast<int>(HelpPages().size()));
}

// The compiled help reads these two in the reader's own encoding.
TEST_P(Listing, IsPlainAscii) {
  const QString text = ReadAll(QString::fromLatin1(GetParam()));
  EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; }));
}

INSTANTIATE_TEST_SUITE_P(Each, Listing, ::testing::Values("Brindle2.hhc", "Brindle2.hhk"),
                         [](const auto& instance) {
                           return std::string(instance.param).substr(9);
                         });

// A page that is about no window.
TEST(HelpOfTheCommandLine, IsReachedAndLeadsSomewhere) {
  const auto page = ReadHelpPage(u"CommandLine"_s);
  EXPECT_EQ(page.error.toStdString(), "");
  EXPECT_TRUE(page.title.startsWith(page.heading));
  for (const auto& link : page.links) {
    EXPECT_TRUE(LeadsSomewhere(link)) << link.toStdString();
  }
  const auto file = u"CommandLine.html"_s;
  EXPECT_TRUE(ReadHelpPage(u"index"_s).links.contains(file));
  EXPECT_TRUE(ReadAll(u"Brindle2.hhp"_s).split(u'\n').contains(file));
  EXPECT_TRUE(ReadAll(u"Brindle2.hhc"_s).contains(file));
  EXPECT_TRUE(ReadAll(u"Brindle2.hhk"_s).contains(file));
}

TEST(HelpOfEveryWindow, LeadsToEveryOther) {
  const auto links = ReadHelpPage(u"index"_s).links;
  for (const auto& name : HelpPages()) {
    if (name != "index") {
      EXPECT_TRUE(links.contains(QString::fromStdString(name) + u".html"_s)) << name;
    }
  }
}

}  // namespace
}  // namespace brindle
