// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/film_sound.h"

#include <string>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;
using namespace std::string_literals;

struct BeginningCase {
  std::string name;
  std::string bytes;
  bool isFilm = true;
};

// Packets of this length after as many other bytes.
std::string Packets(std::size_t length, std::size_t before) {
  const auto packet = "G" + std::string(length - 1, 'x');
  return std::string(before, '\0') + packet + packet + packet;
}

class FileBeginning : public ::testing::TestWithParam<BeginningCase> {};

TEST_P(FileBeginning, TellsWhetherItIsAFilm) {
  EXPECT_EQ(BeginsLikeFilm(GetParam().bytes), GetParam().isFilm);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FileBeginning,
                         ::testing::ValuesIn(std::vector<BeginningCase>{
                             {"Avi", "RIFF\1\2\3\4AVI LIST"s},
                             {"Matroska", "\x1A\x45\xDF\xA3\x01"s},
                             {"Mp4",
                              "\0\0\0\x20"
                              "ftypisom"s},
                             {"QuickTime", "\0\0\0\x20moov"s},
                             {"ProgramStream", "\0\0\1\xBA\x44"s},
                             {"TransportStream", Packets(188, 0)},
                             {"TransportStreamOfADisc", Packets(192, 4)},
                             {"Asf", "\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6"s},
                             {"Flash", "FLV\1\5"s},
                             {"Wav", "RIFF\1\2\3\4WAVEfmt "s, false},
                             {"Empty", "", false},
                             {"CutShort", "RIFF\1\2\3\4AVI"s, false},
                             {"OneMarkOfAPacket", "G" + std::string(399, 'x'), false},
                             {"TwoMarksOfPackets", Packets(188, 0).substr(0, 376), false},
                             {"Silence", std::string(400, '\0'), false},
                         }),
                         NameOf);

TEST(FilmSound, IsNotLookedForInWhatCannotBeRead) {
  const TemporaryFolder folder;
  EXPECT_FALSE(IsFilm(folder.Path()));
  EXPECT_FALSE(IsFilm(folder.PathOf("missing.avi")));
  folder.Put("holiday.avi", "RIFF\1\2\3\4AVI LIST");
  EXPECT_TRUE(IsFilm(folder.PathOf("holiday.avi")));
}

TEST(FilmSound, IsTakenOutByACommand) {
  EXPECT_TRUE(HowToGetSound(u"/films/holiday.avi"_s)
                  .endsWith(u"\r\n\r\nffmpeg -i holiday.avi -vn -c:a pcm_s16le holiday.wav"_s));
  EXPECT_TRUE(
      HowToGetSound(u"/films/at sea.part1.mkv"_s)
          .endsWith(u"ffmpeg -i \"at sea.part1.mkv\" -vn -c:a pcm_s16le \"at sea.part1.wav\""_s));
}

}  // namespace
}  // namespace brindle
