// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The program itself, as a shell starts it, where its surroundings are odd.

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include <QDir>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using Words = std::vector<std::string>;

// What a process gets beside its arguments.
struct Start {
  Words arguments;
  Words variables = {};         // beside those of this process: "NAME=VALUE"; "NAME" is removed
  std::string output = {};      // a path in place of the pipe; "-" for none at all
  bool outputIsClosed = false;  // nobody reads the pipe
  rlim_t mostBytes = RLIM_INFINITY;  // of any file
};

struct Ended {
  int code = -1;  // of a signal: 1000 and its number
  double processorSeconds = 0;
  std::string answer;
  std::string errors;
};

int CodeOf(int status) {
  constexpr int signalled = 1000;
  return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

void Check(bool holds, const char* what) {
  if (!holds) {
    std::perror(what);
    std::abort();
  }
}

[[noreturn]] void Become(const Start& start) {
  for (const auto& variable : start.variables) {
    const auto sign = variable.find('=');
    if (sign == std::string::npos) {
      unsetenv(variable.c_str());
    } else {
      setenv(variable.substr(0, sign).c_str(), variable.substr(sign + 1).c_str(), 1);
    }
  }
  const rlimit limit{start.mostBytes, start.mostBytes};
  Check(setrlimit(RLIMIT_FSIZE, &limit) == 0, "setrlimit");
  std::string program = BRINDLE_PROGRAM;
  std::vector<char*> words{program.data()};
  auto arguments = start.arguments;
  for (auto& argument : arguments) {
    words.push_back(argument.data());
  }
  words.push_back(nullptr);
  execv(program.c_str(), words.data());
  _exit(127);
}

double SecondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

// Reads both until their ends.
void ReadAll(std::array<int, 2> ends, std::array<std::string*, 2> texts) {
  std::array<pollfd, 2> polled{{{ends[0], POLLIN, 0}, {ends[1], POLLIN, 0}}};
  std::array<char, 65536> piece{};
  while (polled[0].fd >= 0 || polled[1].fd >= 0) {
    Check(poll(polled.data(), polled.size(), -1) > 0, "poll");
    for (std::size_t i = 0; i < polled.size(); ++i) {
      if (polled.at(i).fd >= 0 && polled.at(i).revents != 0) {
        const auto length = read(polled.at(i).fd, piece.data(), piece.size());
        if (length <= 0) {
          close(std::exchange(polled.at(i).fd, -1));
        } else {
          texts.at(i)->append(piece.data(), static_cast<std::size_t>(length));
        }
      }
    }
  }
}

Ended RunIn(const Start& start) {
  std::array<int, 2> output{};
  std::array<int, 2> errors{};
  Check(pipe2(output.data(), O_CLOEXEC) == 0 && pipe2(errors.data(), O_CLOEXEC) == 0, "pipe");
  if (start.outputIsClosed) {
    close(output[0]);
  }
  const pid_t child = fork();
  Check(child >= 0, "fork");
  if (child == 0) {
    std::signal(SIGPIPE, SIG_DFL);
    dup2(errors[1], STDERR_FILENO);
    if (start.output == "-") {
      close(STDOUT_FILENO);
    } else if (!start.output.empty()) {
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
      dup2(open(start.output.c_str(), O_WRONLY), STDOUT_FILENO);
    } else {
      dup2(output[1], STDOUT_FILENO);
    }
    Become(start);
  }
  close(output[1]);
  close(errors[1]);
  Ended ended;
  ReadAll({start.outputIsClosed ? -1 : output[0], errors[0]}, {&ended.answer, &ended.errors});
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  ended.code = CodeOf(status);
  ended.processorSeconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
  return ended;
}

Ended RunProgram(const Words& arguments) { return RunIn({.arguments = arguments}); }

// The system's reason, in the language of this run.
std::string Reason(int error) {
  return std::strerror(error);  // NOLINT(concurrency-mt-unsafe): this test has one thread
}

class Program : public ::testing::Test {
 protected:
  [[nodiscard]] std::string PathOf(const char* name) const {
    return folder.PathOf(name).toStdString();
  }

  // A file of more than four gigabytes, which takes no room, of a sound that is not silent.
  [[nodiscard]] std::string HugeRecording() const {
    constexpr std::uint32_t length = 4'200'000'000;
    folder.Put("huge.wav", WavParts{.levels = {1000, -1000}, .declared = length}.Bytes());
    const auto path = PathOf("huge.wav");
    EXPECT_EQ(truncate(path.c_str(), length), 0);
    return path;
  }

  TemporaryFolder folder;
};

constexpr auto BuiltInAnswer =
    "841 kbps (Average)\nvideo 601.6 MB, audio 91.6 MB, overhead 6.9 MB\n";

TEST_F(Program, Answers) {
  const auto ended = RunProgram(Words{"bitrate"});
  EXPECT_EQ(ended.code, 0);
  EXPECT_EQ(ended.answer, BuiltInAnswer);
  EXPECT_EQ(ended.errors, "");
}

TEST_F(Program, StartsInFifteenMilliseconds) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "NOT RUN, the sanitizer takes its own time to start";
#endif
  double least = 1;
  for (int i = 0; i < 20; ++i) {
    least = std::min(least, RunProgram(Words{"bitrate"}).processorSeconds);
  }
  EXPECT_LT(least, 0.015);
}

TEST_F(Program, NeedsNeitherHomeNorDisplayNorAnyVariable) {
  const auto ended = RunIn(
      {.arguments = {"bitrate"},
       .variables = {"HOME", "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_CONFIG_HOME",
                     "XDG_RUNTIME_DIR", "XDG_STATE_HOME", "PATH", "USER", "LANG", "LC_ALL"}});
  EXPECT_EQ(ended.code, 0);
  EXPECT_EQ(ended.answer, BuiltInAnswer);
  EXPECT_EQ(ended.errors, "");
}

TEST_F(Program, WritesPeriodsInALanguageOfCommas) {
  const auto place = folder.Path().toStdString();
  const auto make = "localedef -i de_DE -f UTF-8 " + place + "/de_DE.UTF-8 >/dev/null 2>&1";
  // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): a command of this test
  if (std::system(make.c_str()) != 0) {
    GTEST_SKIP() << "NOT RUN, localedef cannot make the locale";
  }
  const Words locale{"LOCPATH=" + place, "LC_ALL=de_DE.UTF-8"};
  const auto ended =
      RunIn({.arguments = {"bitrate", "--length", "102.5", "--json"}, .variables = locale});
  EXPECT_EQ(ended.code, 0);
  EXPECT_NE(ended.answer.find("\"length_minutes\":102.5,"), std::string::npos) << ended.answer;
  const auto comma = RunIn({.arguments = {"bitrate", "--length", "102,5"}, .variables = locale});
  EXPECT_EQ(comma.code, 2);
  EXPECT_EQ(comma.errors,
            "brindle: --length \"102,5\" has a comma; decimals are written with a period: "
            "\"102.5\"\n");
}

TEST_F(Program, SaysNothingToAReaderThatHasLeft) {
  const auto ended = RunIn({.arguments = {"bitrate"}, .outputIsClosed = true});
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.errors, "");
}

TEST_F(Program, DoesTheRestThoughItsReaderHasLeft) {
  folder.Put("a.wav", WavParts{.levels = std::vector<std::int16_t>(1000, 1000)}.Bytes());
  folder.Put("b.wav", folder.Bytes("a.wav"));
  QDir(folder.Path()).mkdir(QStringLiteral("out"));
  const auto ended =
      RunIn({.arguments = {"normalize", PathOf("a.wav"), PathOf("b.wav"), "-o", PathOf("out")},
             .variables = {"XDG_CONFIG_HOME=" + folder.Path().toStdString()},
             .outputIsClosed = true});
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(folder.Bytes("out/b.wav").size(), folder.Bytes("b.wav").size());
}

TEST_F(Program, SaysThatTheOutputIsFull) {
  const auto ended = RunIn({.arguments = {"bitrate"}, .output = "/dev/full"});
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.errors, "brindle: cannot write the standard output: " + Reason(ENOSPC) + "\n");
}

TEST_F(Program, WritesIntoNoRecordingForWantOfAnOutput) {
  const auto recording = WavParts{.levels = std::vector<std::int16_t>(1000, 1000)}.Bytes();
  folder.Put("a.wav", recording);
  const auto ended = RunIn({.arguments = {"peaks", PathOf("a.wav")}, .output = "-"});
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.errors, "brindle: cannot write the standard output: " + Reason(EBADF) + "\n");
  EXPECT_EQ(folder.Bytes("a.wav"), recording);
}

TEST_F(Program, SaysThatTheDiskIsFull) {
  const auto recording = WavParts{.levels = std::vector<std::int16_t>(100000, 1000)}.Bytes();
  folder.Put("a.wav", recording);
  const auto ended = RunIn({.arguments = {"normalize", PathOf("a.wav"), "-o", PathOf("b.wav")},
                            .variables = {"XDG_CONFIG_HOME=" + folder.Path().toStdString()},
                            .mostBytes = 70000});
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.answer, "");
  EXPECT_TRUE(ended.errors.starts_with("brindle: cannot write " + PathOf("b.wav") + ": "))
      << ended.errors;
  EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1);
  EXPECT_EQ(folder.Bytes("a.wav"), recording);
}

TEST_F(Program, SurvivesNonsenseOfAHundredThousandArguments) {
  constexpr std::size_t many = 100000;
  for (const auto* const word :
       {"nonsense", "--size", "--frob", "-", "--", "=", "--json", "\xff", "-x=1,2", "--help"}) {
    Words arguments(many, word);
    arguments.insert(arguments.begin(), "bitrate");
    const auto ended = RunProgram(arguments);
    EXPECT_TRUE(ended.code == 2 || ended.code == 0) << word << ended.code;
    EXPECT_LE(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << word;
    EXPECT_LT(ended.errors.size(), 200U) << word;
    EXPECT_EQ(ended.answer.empty(), ended.code == 2) << word;
  }
}

TEST_F(Program, TellsEachOfAHundredThousandFilesThatAreNotThere) {
  constexpr std::size_t many = 100000;
  Words arguments(many, "nope");
  arguments.insert(arguments.begin(), "peaks");
  const auto ended = RunProgram(arguments);
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), many);
}

TEST_F(Program, WorksOnPathsWithOddCharacters) {
  const auto bytes = WavParts{.levels = {100, -100}}.Bytes();
  for (const auto* const name : {"with blank.wav", "-.wav", "käse 日本.wav", "new\nline.wav",
                                 "\x1b[31mred.wav", "'quo\"ted'.wav", "*.wav", "\\.wav"}) {
    folder.Put(name, bytes);
    const auto ended = RunProgram(Words{"peaks", "--json", PathOf(name)});
    EXPECT_EQ(ended.code, 0) << name << ended.errors;
    EXPECT_NE(ended.answer.find("\"lowest_level\":-100"), std::string::npos) << ended.answer;
    const auto text = RunProgram(Words{"peaks", PathOf(name)}).answer;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2) << text;
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
  }
}

TEST_F(Program, SaysThatANameIsNotUtf8) {
  const auto path = folder.Path().toStdString() + "/caf\xe9.wav";
  for (const auto& arguments :
       {Words{"peaks", path}, Words{"undo", path}, Words{"normalize", path, "--in-place"}}) {
    const auto ended = RunIn(
        {.arguments = arguments, .variables = {"XDG_CONFIG_HOME=" + folder.Path().toStdString()}});
    EXPECT_EQ(ended.code, 1);
    EXPECT_NE(ended.errors.find("caf\\xe9.wav"), std::string::npos) << ended.errors;
    EXPECT_NE(ended.errors.find(": its name is not UTF-8\n"), std::string::npos) << ended.errors;
  }
}

TEST_F(Program, ShowsAFileNameThatBeginsWithADash) {
  EXPECT_EQ(RunProgram(Words{"peaks", "--", "--nope.wav"}).errors,
            "brindle: cannot read --nope.wav: No such file or directory\n");
}

// On a terminal of its own, until it has said this; then it gets the signal.
struct OnTerminal {
  int code = -1;
  std::string said;
};

OnTerminal RunOnTerminal(const Words& arguments, const std::string& until, int signal) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  Check(child >= 0, "forkpty");
  if (child == 0) {
    Become({.arguments = arguments});
  }
  OnTerminal ended;
  std::array<char, 4096> piece{};
  bool isSent = false;
  for (auto length = read(terminal, piece.data(), piece.size()); length > 0;
       length = read(terminal, piece.data(), piece.size())) {
    ended.said.append(piece.data(), static_cast<std::size_t>(length));
    if (!isSent && ended.said.find(until) != std::string::npos) {
      isSent = true;
      kill(child, signal);
    }
  }
  int status = 0;
  waitpid(child, &status, 0);
  ended.code = CodeOf(status);
  close(terminal);
  return ended;
}

class Interrupted : public Program, public ::testing::WithParamInterface<int> {};

TEST_P(Interrupted, StopsAndSaysSo) {
  const auto path = HugeRecording();
  const auto ended = RunOnTerminal({"peaks", path}, " left  ", GetParam());
  EXPECT_EQ(ended.code, 130);
  EXPECT_NE(ended.said.find("\r\x1b[K["), std::string::npos) << ended.said;
  const auto end = "\r\x1b[Kbrindle: interrupted while scanning " + path + "\r\n";
  EXPECT_TRUE(ended.said.ends_with(end)) << ended.said;
}

INSTANTIATE_TEST_SUITE_P(BySignal, Interrupted, ::testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& instance) {
                           return "Number" + std::to_string(instance.param);
                         });

TEST_F(Program, CompletesInBash) {
  folder.Put("brindle.bash", RunProgram(Words{"--write", "bash"}).answer);
  const auto complete = [&](const std::string& words, int at) {
    const auto script = ". " + PathOf("brindle.bash") + "; COMP_WORDS=(" + words +
                        "); COMP_CWORD=" + std::to_string(at) +
                        "; compopt() { :; }; _brindle; echo \"${COMPREPLY[@]}\" >" + PathOf("out");
    // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): a command of this test
    EXPECT_EQ(std::system(("bash -c '" + script + "'").c_str()), 0);
    return folder.Bytes("out");
  };
  EXPECT_EQ(complete("brindle", 1),
            "bitrate audio space split time size resolution info parts peaks "
            "normalize undo --help --version\n");
  EXPECT_EQ(complete("brindle bi", 1), "bitrate\n");
  EXPECT_EQ(complete("brindle bitrate --d", 2), "--discs --divx\n");
  EXPECT_EQ(complete("brindle bitrate --rate ", 3), "pal film ntsc\n");
  EXPECT_EQ(complete("brindle peaks " + folder.Path().toStdString() + "/brin", 2),
            PathOf("brindle.bash") + "\n");
}

TEST_F(Program, CompletesInZsh) {
  folder.Put("_brindle", RunProgram(Words{"--write", "zsh"}).answer);
  // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): a command of this test
  if (std::system("command -v zsh >/dev/null") != 0) {
    GTEST_SKIP() << "NOT RUN, there is no zsh";
  }
  // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): a command of this test
  EXPECT_EQ(std::system(("zsh -n " + PathOf("_brindle")).c_str()), 0);
}

}  // namespace
}  // namespace brindle
