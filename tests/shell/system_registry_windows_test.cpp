// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>
#include <windows.h>

#include <QProcess>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "extras/start_up_entry.h"
#include "shell/system_registry.h"
#include "tests/shell/in_wine.h"
#include "tests/support/fakes.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const QString RunKey = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
const QString TestKey = u"SOFTWARE\\Brindle test"_s;
const QString Root = u"HKLM\\"_s;
constexpr auto Success = "GAIN spyware was successfully disabled.";
constexpr auto Failure = "Error disabling GAIN spyware.";

// Runs the system's own tool, which accesses the same registry in its own way. Returns whether it
// succeeded.
bool Reg(const QStringList& arguments) {
  QProcess process;
  process.start(u"reg"_s, arguments);
  // One that has finished by now is not waited for, and that is no error.
  process.waitForFinished();
  EXPECT_EQ(process.state(), QProcess::NotRunning);
  EXPECT_EQ(process.error(), QProcess::UnknownError) << "none";
  return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

const QString OurView = u"/reg:64"_s;
const QString OtherView = u"/reg:32"_s;

bool Stands(const QString& key, const QString& value, const QString& view = OurView) {
  return Reg({u"query"_s, QString(Root + key), u"/v"_s, value, view});
}

void Write(const QString& key, const QString& value, const QString& view = OurView) {
  EXPECT_TRUE(
      Reg({u"add"_s, QString(Root + key), u"/v"_s, value, u"/d"_s, u"C:\\x.exe"_s, u"/f"_s, view}));
  EXPECT_TRUE(Stands(key, value, view));
}

// The real registry, but only that of Wine.
class SystemRegistryTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!RunsInWine()) {
      GTEST_SKIP() << "NOT RUN: the registry of a real system would be changed";
    }
  }
  void TearDown() override {
    if (RunsInWine()) {
      Reg({u"delete"_s, QString(Root + TestKey), u"/f"_s});
      for (const auto& view : {OurView, OtherView}) {
        Reg({u"delete"_s, QString(Root + RunKey), u"/v"_s, u"Trickler"_s, u"/f"_s, view});
        Reg({u"delete"_s, QString(Root + RunKey), u"/v"_s, u"Other"_s, u"/f"_s, view});
      }
    }
  }

  // Runs the remover and returns the text of its last box.
  std::string Remove(BoxAnswer answer = BoxAnswer::Yes) {
    boxes.Answer(answer);
    boxes.Answer(BoxAnswer::TryAgain);
    RemoveStartUpEntry(nullptr, boxes, registry);
    return boxes.asked.back().text;
  }
  std::string Delete(Registry& from, const QString& key, const QString& value) {
    boxes.Answer(BoxAnswer::Cancel);
    DeleteRunValue(nullptr, boxes, from, RegistryRoot::LocalMachine, key, value);
    return boxes.asked.back().text;
  }

  FakeBoxes boxes;
  SystemRegistry registry;
};

TEST_F(SystemRegistryTest, EntryIsGoneAndItsNeighbourStays) {
  Write(RunKey, u"Trickler"_s);
  Write(RunKey, u"Other"_s);
  EXPECT_EQ(Remove(), Success);
  EXPECT_FALSE(Stands(RunKey, u"Trickler"_s));
  EXPECT_TRUE(Stands(RunKey, u"Other"_s));
}

TEST_F(SystemRegistryTest, EntryOfA32BitProgramIsFound) {
  Write(RunKey, u"Trickler"_s, OtherView);
  Write(RunKey, u"Other"_s, OtherView);
  EXPECT_FALSE(Stands(RunKey, u"Trickler"_s));
  EXPECT_EQ(Remove(), Success);
  EXPECT_FALSE(Stands(RunKey, u"Trickler"_s, OtherView));
  EXPECT_TRUE(Stands(RunKey, u"Other"_s, OtherView));
  EXPECT_EQ(Remove(), Failure);
}

TEST_F(SystemRegistryTest, EntryOfA64BitProgramGoesFirst) {
  Write(RunKey, u"Trickler"_s);
  Write(RunKey, u"Trickler"_s, OtherView);
  EXPECT_EQ(Remove(), Success);
  EXPECT_FALSE(Stands(RunKey, u"Trickler"_s));
  EXPECT_TRUE(Stands(RunKey, u"Trickler"_s, OtherView));
}

TEST_F(SystemRegistryTest, SecondTimeIsAnError) {
  Write(RunKey, u"Trickler"_s);
  EXPECT_EQ(Remove(), Success);
  EXPECT_EQ(Remove(), Failure);
}

TEST_F(SystemRegistryTest, MissingEntryIsAnError) {
  EXPECT_FALSE(Stands(RunKey, u"Trickler"_s));
  EXPECT_EQ(Remove(), Failure);
}

TEST_F(SystemRegistryTest, NoDeletesNothing) {
  Write(RunKey, u"Trickler"_s);
  boxes.Answer(BoxAnswer::No);
  RemoveStartUpEntry(nullptr, boxes, registry);
  EXPECT_EQ(boxes.asked.size(), 1U);
  EXPECT_TRUE(Stands(RunKey, u"Trickler"_s));
}

TEST_F(SystemRegistryTest, MissingKeyIsAnError) {
  EXPECT_EQ(Delete(registry, u"SOFTWARE\\Brindle\\no such key"_s, u"Trickler"_s), Failure);
}

TEST_F(SystemRegistryTest, MissingKeyGivesNoKey) {
  Registry::Key key = 1;
  EXPECT_EQ(registry.OpenKey(RegistryRoot::LocalMachine, u"SOFTWARE\\Brindle\\no such key"_s, key),
            ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(key, 0U);
  EXPECT_NE(registry.DeleteValue(key, u"Trickler"_s), ERROR_SUCCESS);
  registry.CloseKey(key);
}

// As much as Wine can show: it lets every user open its keys for any access, but a key opened for
// reading cannot be written.
class ReadOnlyRegistry : public SystemRegistry {
 public:
  Result OpenKey(RegistryRoot, const QString& subKey, Key& key) override {
    HKEY opened = nullptr;
    const auto result =
        RegOpenKeyExW(HKEY_LOCAL_MACHINE, subKey.toStdWString().c_str(), 0, KEY_READ, &opened);
    key = reinterpret_cast<Key>(opened);
    return result;
  }
};

TEST_F(SystemRegistryTest, KeyThatMayNotBeWrittenIsAnErrorAndKeepsItsValue) {
  Write(TestKey, u"Trickler"_s);
  ReadOnlyRegistry readOnly;
  EXPECT_EQ(Delete(readOnly, TestKey, u"Trickler"_s), Failure);
  EXPECT_TRUE(Stands(TestKey, u"Trickler"_s));
}

TEST_F(SystemRegistryTest, ClosedKeyIsClosed) {
  Write(TestKey, u"Trickler"_s);
  Registry::Key key = 0;
  ASSERT_EQ(registry.OpenKey(RegistryRoot::LocalMachine, TestKey, key), ERROR_SUCCESS);
  ASSERT_NE(key, 0U);
  registry.CloseKey(key);
  EXPECT_NE(registry.DeleteValue(key, u"Trickler"_s), ERROR_SUCCESS);
  EXPECT_TRUE(Stands(TestKey, u"Trickler"_s));
}

}  // namespace
}  // namespace brindle
