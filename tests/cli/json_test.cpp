// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What the program says to programs: one object, as docs/brindle.schema.json describes it.

#include "cli/json.h"

#include <limits>
#include <string>
#include <vector>

#include <QByteArray>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <gtest/gtest.h>

#include "tests/cli/json_schema.h"
#include "tests/cli/run_command.h"
#include "tests/support/named_case.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

JsonSchema TheSchema() {
  QFile file(QStringLiteral(BRINDLE_SOURCE "/docs/brindle.schema.json"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  const auto document = QJsonDocument::fromJson(file.readAll());
  EXPECT_FALSE(document.object().isEmpty());
  return JsonSchema(document.object());
}

struct JsonCase {
  std::string name;
  std::string line;
  std::string answer;
};

class Json : public ::testing::TestWithParam<JsonCase> {};

TEST_P(Json, IsAsTheSchemaSays) {
  const CommandRunner runner;
  const auto result = runner.Run(GetParam().line + " --json");
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.answer, GetParam().answer + "\n");
  EXPECT_EQ(TheSchema().FaultOf(result.answer), "");
}

INSTANTIATE_TEST_SUITE_P(
    OfACalculator, Json,
    ::testing::Values(
        JsonCase{
            "Bitrate", "bitrate --length 1:42:30 --size 700MB --discs 2 --audio 192",
            R"({"version":1,"command":"bitrate","bitrate_kbps":1708,)"
            R"("bitrate_kbps_exact":1708.0018211382114,"quality":"Excellent","video_mb":1252.2,)"
            R"("video_mb_exact":1252.1995544433594,"audio_mb":140.8,)"
            R"("audio_mb_exact":140.7623291015625,"overhead_mb":7,)"
            R"("overhead_mb_exact":7.038116455078125,"inputs":{"length_minutes":102.5,)"
            R"("size_mb":700,"discs":2,"audio_kbps":192,"extra_mb":0,)"
            R"("overhead_kb_per_second":1.171875,"divx":"4/5"}})"},
        JsonCase{"Audio", "audio --target 650 --interleave-overhead off",
                 R"({"version":1,"command":"audio","bitrate_kbps":140,)"
                 R"j("bitrate_kbps_exact":139.81013333333334,"suggestion":"128kbps (Good)",)j"
                 R"("inputs":{"length_minutes":100,"video_mb":550,"target_mb":650,)"
                 R"("interleave_overhead_kb_per_second":0}})"},
        JsonCase{"Space", "space --video-size 700MB --audio 0",
                 R"({"version":1,"command":"space","space_mb":700,"space_mb_exact":700,)"
                 R"("video_mb":700,"video_mb_exact":700,"audio_mb":null,"audio_mb_exact":0,)"
                 R"("inputs":{"length_minutes":100,"audio_kb_per_second":0,"divx":"4/5"}})"},
        JsonCase{"Split", "split --size 1300MB --length 150000f --segment 650MB",
                 R"({"version":1,"command":"split","segments":[{"size_mb":650,"delete":)"
                 R"([{"start_frame":75000,"end_frame":150000}]},{"size_mb":650,"delete":)"
                 R"([{"start_frame":0,"end_frame":74999}]}],"key_frames":600,"inputs":)"
                 R"({"size_mb":1300,"length_minutes":100,"frames":150000,)"
                 R"("key_frame_interval_frames":250}})"},
        JsonCase{"SplitWithNothingToDelete", "split --segment 0",
                 R"({"version":1,"command":"split","segments":[{"size_mb":0,"delete":)"
                 R"([{"start_frame":0,"end_frame":150000}]},{"size_mb":1300,"delete":[]}],)"
                 R"("key_frames":600,"inputs":{"size_mb":1300,"length_minutes":100,)"
                 R"("frames":150000,"key_frame_interval_frames":250}})"},
        JsonCase{"Time", "time 0:00:20",
                 R"({"version":1,"command":"time","hours":0,"minutes":0,"seconds":20,)"
                 R"("seconds_exact":20,"length_minutes":0.333,)"
                 R"("length_minutes_exact":0.3333333333333333,"frames":500,)"
                 R"("inputs":{"rate_fps":25}})"},
        JsonCase{"Size", "size 734003200B",
                 R"({"version":1,"command":"size","size_b":734003200,"size_b_exact":734003200,)"
                 R"("size_kb":716800,"size_kb_exact":716800,"size_mb":700,"size_mb_exact":700,)"
                 R"("size_gb":0.68359375,"size_gb_exact":0.68359375})"},
        JsonCase{"Resolution", "resolution --ratio 2.35:1 --width 640",
                 R"({"version":1,"command":"resolution","width_pixels":640,"height_pixels":272,)"
                 R"("pixels":174080,"macroblocks":680,"ratio":2.353,)"
                 R"("ratio_exact":2.3529411764705883,"error_percent":0.13,)"
                 R"("inputs":{"ratio":2.35,"increment_pixels":16}})"},
        JsonCase{"FreeResolution", "resolution --ratio free --width 720 --height 576",
                 R"({"version":1,"command":"resolution","width_pixels":720,"height_pixels":576,)"
                 R"("pixels":414720,"macroblocks":1620,"ratio":1.25,"ratio_exact":1.25,)"
                 R"("error_percent":null,"inputs":{"ratio":null,"increment_pixels":16}})"}),
    NameOf);

TEST(JsonOfFiles, HasEachOfThem) {
  const CommandRunner runner;
  const auto schema = TheSchema();
  runner.folder.Put("quiet.wav", WavParts{.levels = {-1000, 500, 2000, 0}}.Bytes());
  runner.folder.Put("silent.wav", WavParts{.levels = {0, 0}}.Bytes());
  runner.folder.Put("no.wav", "hello");
  const auto quiet = runner.folder.PathOf("quiet.wav").toStdString();
  const auto silent = runner.folder.PathOf("silent.wav").toStdString();
  const auto no = runner.folder.PathOf("no.wav").toStdString();

  const auto peaks = runner.Run({"peaks", quiet, no, silent, "--json"});
  EXPECT_EQ(peaks.code, 1);
  EXPECT_EQ(schema.FaultOf(peaks.answer), "");
  EXPECT_EQ(peaks.answer.substr(0, 50),
            R"({"version":1,"command":"peaks","files":[{"file":")" + quiet.substr(0, 1));
  EXPECT_NE(peaks.answer.find(R"("lowest_level":-1000,"highest_level":2000)"), std::string::npos);
  EXPECT_NE(peaks.answer.find(R"("error":"cannot read )" + no), std::string::npos);

  const auto output = runner.folder.PathOf("loud.wav").toStdString();
  for (const auto& arguments :
       std::vector<std::vector<std::string>>{{"normalize", quiet, "--output", output},
                                             {"normalize", quiet, "--output", output},
                                             {"normalize", quiet, silent, "--in-place"},
                                             {"normalize", quiet, "--in-place", "--finish"},
                                             {"normalize", quiet, "--finish"},
                                             {"undo", quiet, silent},
                                             {"undo", no}}) {
    auto words = arguments;
    words.emplace_back("--json");
    const auto result = runner.Run(words);
    if (result.code == 2) {
      EXPECT_EQ(result.answer, "");
    } else {
      EXPECT_EQ(schema.FaultOf(result.answer), "") << result.answer;
    }
  }
}

TEST(JsonObject, WritesWhatStrangersPutIntoNames) {
  JsonObject object;
  object.Add("a\"b\\", "line\nbreak\x01 \x7f \"quoted\" ü");
  EXPECT_EQ(object.Text(), R"({"a\"b\\":"line\u000abreak\u0001 \u007f \"quoted\" ü"})");
}

TEST(JsonObject, WritesNullForWhatIsNotFinite) {
  JsonObject object;
  object.Add("a", std::numeric_limits<double>::infinity());
  object.Add("b", std::numeric_limits<double>::quiet_NaN());
  object.AddShown("c", "", 0.25);
  object.Add("d", true);
  object.Add("e", std::vector<JsonObject>());
  EXPECT_EQ(object.Text(), R"({"a":null,"b":null,"c":null,"c_exact":0.25,"d":true,"e":[]})");
}

struct SchemaCase {
  std::string name;
  std::string text;
  std::string fault;
};

class Schema : public ::testing::TestWithParam<SchemaCase> {};

TEST_P(Schema, FindsFault) {
  EXPECT_NE(TheSchema().FaultOf(GetParam().text).find(GetParam().fault), std::string::npos)
      << TheSchema().FaultOf(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    With, Schema,
    ::testing::Values(
        SchemaCase{"NoJson", "841 kbps", "illegal value"},
        SchemaCase{"AnotherVersion", R"({"version":2,"command":"undo","files":[]})",
                   "version is another constant"},
        SchemaCase{"AnotherCommand", R"({"version":1,"command":"redo","files":[]})",
                   "$ fits 0 of the forms"},
        SchemaCase{"AKeyThatIsMissing", R"({"version":1,"command":"undo"})", "has no files"},
        SchemaCase{"AKeyTooMany", R"({"version":1,"command":"undo","files":[],"more":1})",
                   "more is not known"},
        SchemaCase{"AWrongType",
                   R"({"version":1,"command":"undo","files":[{"file":1,"undone":true}]})",
                   "file is of the type integer"},
        SchemaCase{"ANumberOutOfRange",
                   R"({"version":1,"command":"peaks","files":[{"file":"a","lowest_level":-40000,)"
                   R"("highest_level":0,"sample_rate_hz":1,"sample_bits":16,"channels":1,)"
                   R"("duration_seconds":null}]})",
                   "lowest_level is too small"}),
    NameOf);

}  // namespace
}  // namespace brindle
