// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The command line in a process of its own, with stand-ins that answer, fail, crash or hang.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "media/film_json.h"
#include "shell/system_films.h"
#include "tests/base/settings/environment.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/fake_clock.h"
#include "tests/support/named_case.h"
#include "tests/support/sample_film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int Patience = 30000;  // milliseconds

class SystemFilms : public ::testing::Test {
 protected:
  SystemFilms() { path.Set(QString::fromLatin1(qgetenv("PATH"))); }

  // What the stand-in does; it has already noted its arguments, one a line.
  static void Install(const TemporaryFolder& where, const std::string& does) {
    where.Put("brindle", "#!/bin/sh\nfor each in \"$@\"; do echo \"$each\"; done > '" +
                             where.PathOf("noted").toStdString() + "'\n" + does + "\n");
    EXPECT_TRUE(QFile::setPermissions(where.PathOf("brindle"),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  }
  void Install(const std::string& does) const { Install(program, does); }

  template <class Condition>
  bool WaitFor(Condition condition) {
    return QTest::qWaitFor(
        [&] {
          clock.Advance(0);
          return condition();
        },
        Patience);
  }

  void Begin() {
    job = films.Begin(u"/films/holiday.avi"_s,
                      {.progress = [this](int percent) { progress.push_back(percent); },
                       .ended = [this](const auto& end) { read = end; }});
  }
  // The message of a reading that fails.
  std::string Failure() {
    Begin();
    EXPECT_TRUE(WaitFor([this] { return read.has_value(); }));
    return read && !*read ? read->error().toStdString() : "none";
  }

  TemporaryFolder program;
  Environment path{"PATH"};
  FakeClock clock;
  SystemFilmSource films{clock, program.Path(), {.answerBytes = 100'000}};
  SystemPartWriter parts{clock, program.Path()};
  std::unique_ptr<FilmJob> job;
  std::vector<int> progress;
  std::optional<FilmSource::Read> read;
};

TEST_F(SystemFilms, AskTheCommandLineAndTakeItsAnswer) {
  auto film = SampleFilm();
  film.keyFrames.resize(40);
  program.Put("answer", JsonOf(film, "holiday.avi"));
  Install("echo 'progress 10' >&2; echo 'progress 100' >&2; cat '" +
          program.PathOf("answer").toStdString() + "'");
  Begin();
  EXPECT_FALSE(read) << "nothing is called before the event loop";
  ASSERT_TRUE(WaitFor([this] { return read.has_value(); }));
  ASSERT_TRUE(*read) << read->error().toStdString();
  EXPECT_EQ((*read)->seconds, 6150);
  EXPECT_EQ((*read)->keyFrames.size(), 40U);
  EXPECT_EQ(progress, (std::vector<int>{10, 100}));
  EXPECT_EQ(program.Bytes("noted"),
            "info\n/films/holiday.avi\n--json\n--key-frames\n--progress\n--limited\n");
}

TEST_F(SystemFilms, TakeTheProgramInThePathIfNoneIsBeside) {
  const TemporaryFolder elsewhere;
  path.Set(elsewhere.Path() + u':' + QString::fromLatin1(qgetenv("PATH")));
  Install(elsewhere, "echo 'brindle: here' >&2; exit 1");
  EXPECT_EQ(Failure(), "Cannot read /films/holiday.avi: here");
}

struct FailureCase {
  std::string name;
  std::string does;
  std::string message;
};

class FilmProgramFails : public SystemFilms, public ::testing::WithParamInterface<FailureCase> {};

TEST_P(FilmProgramFails, WithOneMessage) {
  Install(GetParam().does);
  EXPECT_EQ(Failure(), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, FilmProgramFails,
    ::testing::ValuesIn(std::vector<FailureCase>{
        {"WithAMessage", "echo 'brindle: cannot read a.avi: it is no film' >&2; exit 1",
         "Cannot read a.avi: it is no film"},
        {"WithAReason", "echo progress 5 >&2; echo 'brindle: no memory' >&2; exit 1",
         "Cannot read /films/holiday.avi: no memory"},
        {"WithoutAWord", "exit 9", "Cannot read /films/holiday.avi: brindle ended with code 9"},
        {"ByASignal", "kill -ABRT $$", "Cannot read /films/holiday.avi: brindle crashed"},
        {"WithoutAnAnswer", "exit 0",
         "Cannot read /films/holiday.avi: the answer of brindle is wrong: it is not a JSON object"},
        {"WithTooLongAnAnswer", "exec yes",
         "Cannot read /films/holiday.avi: the answer is too "
         "large"},
    }),
    NameOf);

TEST_F(SystemFilms, SayWhenThereIsNoProgram) {
  path.Set(u"/nowhere"_s);
  EXPECT_EQ(Failure(), "Cannot start brindle: it is not installed");
}

TEST_F(SystemFilms, SayWhenTheProgramCannotBeStarted) {
  Install("");
  program.Put("brindle", "#!/nowhere/sh\n");
  EXPECT_EQ(Failure(), "Cannot start brindle: No such file or directory");
}

TEST_F(SystemFilms, EndAProgramThatSleepsForEver) {
  Install("exec sleep 1000");
  Begin();
  ASSERT_TRUE(WaitFor([this] { return QFile::exists(program.PathOf("noted")); }));
  clock.Advance(119);
  EXPECT_FALSE(read);
  clock.Advance(2);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->error().toStdString(), "Cannot read /films/holiday.avi: brindle does not answer");
}

TEST_F(SystemFilms, GoOnAsLongAsThereIsProgress) {
  Install("echo 'progress 1' >&2; sleep 1; echo 'progress 2' >&2; exec sleep 1000");
  Begin();
  ASSERT_TRUE(WaitFor([this] { return progress.size() == 1; }));
  clock.Advance(100);
  ASSERT_TRUE(WaitFor([this] { return progress.size() == 2; }));
  clock.Advance(100);
  EXPECT_FALSE(read);
}

TEST_F(SystemFilms, StopWithoutAWord) {
  Install("trap 'echo stopped > \"" + program.PathOf("end").toStdString() +
          "\"; exit 130' TERM\necho 'progress 1' >&2\nwhile :; do sleep 0.01; done");
  Begin();
  ASSERT_TRUE(WaitFor([this] { return !progress.empty(); }));
  job.reset();
  EXPECT_TRUE(WaitFor([this] { return QFile::exists(program.PathOf("end")); }));
  EXPECT_FALSE(read);
}

TEST_F(SystemFilms, EndByForceAProgramThatDoesNotStop) {
  Install("trap '' TERM\necho 'progress 1' >&2\necho $$ > '" +
          program.PathOf("number").toStdString() + "'\nwhile :; do sleep 0.01; done");
  Begin();
  ASSERT_TRUE(WaitFor([this] {
    return QFile::exists(program.PathOf("number")) && !program.Bytes("number").empty();
  }));
  const auto number = QString::fromStdString(program.Bytes("number")).trimmed();
  job.reset();
  clock.Advance(11);
  EXPECT_TRUE(WaitFor([&] { return !QFile::exists(u"/proc/%1"_s.arg(number)); }));
}

TEST_F(SystemFilms, MayBeStoppedBeforeTheyBegin) {
  Install("exit 1");
  Begin();
  job.reset();
  clock.Advance(1);
  QCoreApplication::processEvents();
  EXPECT_FALSE(QFile::exists(program.PathOf("noted")));
  EXPECT_FALSE(read);
}

TEST_F(SystemFilms, WriteParts) {
  Install(R"(echo '{"version":1,"command":"parts","file":"h.avi","written":true,"parts":[)"
          R"({"file":"/d/h.part1.avi","size_b":700,"duration_seconds":3.5},)"
          R"({"file":"/d/h.part2.avi","size_b":600,"duration_seconds":2}]}')");
  std::optional<PartWriter::Written> written;
  job = parts.Begin(
      {.film = u"/films/h.avi"_s, .cuts = {100, 200}, .folder = u"/d"_s, .overwrites = true},
      {.progress = [](int) {}, .ended = [&](const auto& end) { written = end; }});
  ASSERT_TRUE(WaitFor([&] { return written.has_value(); }));
  ASSERT_TRUE(*written) << written->error().toStdString();
  ASSERT_EQ((*written)->size(), 2U);
  EXPECT_EQ((*written)->front().path, u"/d/h.part1.avi"_s);
  EXPECT_EQ((*written)->front().bytes, 700);
  EXPECT_EQ((*written)->front().seconds, 3.5);
  EXPECT_EQ(program.Bytes("noted"),
            "parts\n/films/h.avi\n--output-folder\n/d\n--json\n--progress\n--cut\n100\n--cut\n200\n"
            "--force\n");
}

struct JsonCase {
  std::string name;
  QByteArray json;
};

class PartsInJson : public ::testing::TestWithParam<JsonCase> {};

TEST_P(PartsInJson, AreRefusedUnlessWhole) {
  const auto read = PartsOfJson(GetParam().json);
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error(), u"its answer cannot be read"_s);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, PartsInJson,
    ::testing::ValuesIn(std::vector<JsonCase>{
        {"Nothing", ""},
        {"NoParts", "{}"},
        {"NotAList", R"({"parts":7})"},
        {"EmptyList", R"({"parts":[]})"},
        {"NoName", R"({"parts":[{"size_b":7,"duration_seconds":1}]})"},
        {"NoSize", R"({"parts":[{"file":"a","duration_seconds":1}]})"},
        {"NegativeSize", R"({"parts":[{"file":"a","size_b":-7,"duration_seconds":1}]})"},
        {"HugeSize", R"({"parts":[{"file":"a","size_b":1e300,"duration_seconds":1}]})"},
        {"NegativeDuration", R"({"parts":[{"file":"a","size_b":7,"duration_seconds":-1}]})"},
    }),
    NameOf);

}  // namespace
}  // namespace brindle
