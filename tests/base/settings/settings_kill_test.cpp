// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <poll.h>
#include <random>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/settings/settings_lines.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/base/settings/writer_contents.h"

namespace brindle {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

constexpr const char* FileName = "Brindle2.ini";

// The program that writes the settings file of a folder endlessly.
class Writer {
 public:
  explicit Writer(const QString& folder) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
      return;
    }
    std::string program = SETTINGS_WRITER;
    std::string path = QFile::encodeName(folder).toStdString();
    const std::array<char*, 3> arguments{program.data(), path.data(), nullptr};
    process_ = fork();
    if (process_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      execv(program.data(), arguments.data());
      _exit(127);
    }
    close(ends[1]);
    told_ = ends[0];
  }

  ~Writer() {
    if (process_ > 0) {
      Kill();
    }
    if (told_ >= 0) {
      close(told_);
    }
  }

  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  Writer(Writer&&) = delete;
  Writer& operator=(Writer&&) = delete;

  // Waits until the writer has begun and `count` writes are done; false if that does not happen.
  [[nodiscard]] bool AwaitWrites(int count) const {
    constexpr int longestWait = 20'000;
    for (int wanted = count + 1; wanted > 0; --wanted) {
      pollfd waiting{told_, POLLIN, 0};
      char byte = 0;
      if (poll(&waiting, 1, longestWait) != 1 || read(told_, &byte, 1) != 1) {
        return false;
      }
    }
    return true;
  }

  // Kills the writer without warning; true if that is what ended it.
  bool Kill() {
    int status = 0;
    const bool killed = kill(process_, SIGKILL) == 0 && waitpid(process_, &status, 0) == process_ &&
                        WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    process_ = -1;
    return killed;
  }

 private:
  pid_t process_ = -1;
  int told_ = -1;
};

// How long one write takes here, measured over a few.
microseconds TimeOfOneWrite() {
  constexpr int writes = 10;
  const TemporaryFolder folder;
  const Writer writer(folder.Path());
  EXPECT_TRUE(writer.AwaitWrites(0));
  const auto start = Clock::now();
  EXPECT_TRUE(writer.AwaitWrites(writes - 1));
  const auto time = std::chrono::duration_cast<microseconds>(Clock::now() - start) / writes;
  return std::clamp(time, microseconds(100), microseconds(20'000));
}

// Starts again in the folder; returns how many files that removed.
int SweepLeftovers(const TemporaryFolder& folder) {
  const auto before = folder.Names().size();
  SettingsFile(folder.Path()).SweepLeftovers();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{FileName});
  return static_cast<int>(before - folder.Names().size());
}

TEST(KilledWriterTest, LeavesTheOldFileOrTheNewOneAndNeverAMixture) {
  constexpr int rounds = 210;
  constexpr unsigned mostWrites = 3;
  const auto longContent = LongContent().toStdString();
  const auto shortContent = ShortContent().toStdString();
  Settings older = BuiltInSettings();
  older.MovieLength = 90;
  const auto oldContent = WriteLines(older, true).toStdString();

  const auto longestDelay = 2 * TimeOfOneWrite();
  std::mt19937 random(20260118);
  std::uniform_real_distribution<double> fraction(0, 1);
  const TemporaryFolder folder;
  int foundOld = 0;
  int foundLong = 0;
  int foundShort = 0;
  int leftovers = 0;
  for (int round = 0; round < rounds; ++round) {
    folder.Put(FileName, oldContent);
    Writer writer(folder.Path());
    const auto writes = static_cast<int>(random() % mostWrites);
    ASSERT_TRUE(writer.AwaitWrites(writes)) << "round " << round;
    // Short delays more often than long ones: before its sync a write takes next to no time.
    std::this_thread::sleep_for(longestDelay * std::pow(fraction(random), 3));
    ASSERT_TRUE(writer.Kill()) << "round " << round;

    const auto found = folder.Bytes(FileName);
    foundOld += found == oldContent ? 1 : 0;
    foundLong += found == longContent ? 1 : 0;
    foundShort += found == shortContent ? 1 : 0;
    ASSERT_EQ(foundOld + foundLong + foundShort, round + 1)
        << "after " << writes << " writes, " << found.size() << " bytes: " << found.substr(0, 400);
    ASSERT_TRUE(writes == 0 || found != oldContent) << "a finished write is undone";
    leftovers += SweepLeftovers(folder);
  }
  RecordProperty("kills", rounds);
  RecordProperty("oldFileFound", foundOld);
  RecordProperty("longFileFound", foundLong);
  RecordProperty("shortFileFound", foundShort);
  RecordProperty("temporaryFilesLeft", leftovers);
  // The moments were spread over the writes.
  EXPECT_GT(foundOld, 0);
  EXPECT_GT(foundLong, 0);
  EXPECT_GT(foundShort, 0);
}

}  // namespace
}  // namespace brindle
