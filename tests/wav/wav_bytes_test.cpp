// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_bytes.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

std::string Bytes(std::initializer_list<int> bytes) {
  std::string text;
  for (const int byte : bytes) {
    text.push_back(static_cast<char>(byte));
  }
  return text;
}

struct TwoBytesCase {
  std::string name;
  std::string bytes;
  int number = 0;
};

class ReadsTwoBytes : public ::testing::TestWithParam<TwoBytesCase> {};

TEST_P(ReadsTwoBytes, AsASignedNumber) {
  EXPECT_EQ(Bytes2ToInt(GetParam().bytes), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReadsTwoBytes,
    ::testing::Values(TwoBytesCase{"Zero", Bytes({0, 0}), 0}, TwoBytesCase{"One", Bytes({1, 0}), 1},
                      TwoBytesCase{"LowestByteFirst", Bytes({0x34, 0x12}), 0x1234},
                      TwoBytesCase{"LowByteOf128", Bytes({0x80, 0}), 128},
                      TwoBytesCase{"LowByteOf255", Bytes({0xFF, 0}), 255},
                      TwoBytesCase{"OnlyTheHighByte", Bytes({0, 1}), 256},
                      TwoBytesCase{"Largest", Bytes({0xFF, 0x7F}), 32767},
                      TwoBytesCase{"HighByteOf128", Bytes({0, 0x80}), -32768},
                      TwoBytesCase{"AboveTheSmallest", Bytes({1, 0x80}), -32767},
                      TwoBytesCase{"ExtensibleFormat", Bytes({0xFE, 0xFF}), -2},
                      TwoBytesCase{"MinusOne", Bytes({0xFF, 0xFF}), -1},
                      TwoBytesCase{"OneByteAlone", Bytes({0xFE}), 254},
                      TwoBytesCase{"NoBytes", "", 0}),
    NameOf);

TEST(TwoBytes, EveryPairWrapsIntoSixteenBits) {
  for (int number = -32768; number <= 32767; ++number) {
    const auto unsignedNumber = static_cast<std::uint16_t>(number);
    ASSERT_EQ(Bytes2ToInt(Bytes({unsignedNumber % 256, unsignedNumber / 256})), number);
  }
}

struct FourBytesCase {
  std::string name;
  std::string bytes;
  std::optional<std::int32_t> number;
  std::uint32_t unsignedNumber = 0;
};

class ReadsFourBytes : public ::testing::TestWithParam<FourBytesCase> {};

TEST_P(ReadsFourBytes, AsASignedNumber) {
  EXPECT_EQ(Bytes4ToLong(GetParam().bytes), GetParam().number);
}

TEST_P(ReadsFourBytes, AsAnUnsignedNumber) {
  EXPECT_EQ(Bytes4ToUnsigned(GetParam().bytes), GetParam().unsignedNumber);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ReadsFourBytes,
    ::testing::Values(
        FourBytesCase{"Zero", Bytes({0, 0, 0, 0}), 0, 0},
        FourBytesCase{"First", Bytes({1, 0, 0, 0}), 1, 1},
        FourBytesCase{"FirstOf255", Bytes({255, 0, 0, 0}), 255, 255},
        FourBytesCase{"Second", Bytes({0, 1, 0, 0}), 256, 256},
        FourBytesCase{"SecondOf255", Bytes({0, 255, 0, 0}), 65280, 65280},
        FourBytesCase{"Third", Bytes({0, 0, 1, 0}), 65536, 65536},
        FourBytesCase{"ThirdOf255", Bytes({0, 0, 255, 0}), 16711680, 16711680},
        FourBytesCase{"Fourth", Bytes({0, 0, 0, 1}), 16777216, 16777216},
        FourBytesCase{"LowestByteFirst", Bytes({0x78, 0x56, 0x34, 0x12}), 0x12345678, 0x12345678},
        FourBytesCase{"CompactDiscRate", Bytes({0x44, 0xAC, 0, 0}), 44100, 44100},
        FourBytesCase{"LargestSigned", Bytes({255, 255, 255, 127}), 2147483647, 2147483647},
        FourBytesCase{"JustTooLarge", Bytes({0, 0, 0, 128}), std::nullopt, 2147483648},
        FourBytesCase{"OneMore", Bytes({1, 0, 0, 128}), std::nullopt, 2147483649},
        FourBytesCase{"Largest", Bytes({255, 255, 255, 255}), std::nullopt, 4294967295},
        FourBytesCase{"ThreeBytes", Bytes({1, 2, 3}), 197121, 197121},
        FourBytesCase{"OneByte", Bytes({200}), 200, 200}, FourBytesCase{"NoBytes", "", 0, 0}),
    NameOf);

}  // namespace
}  // namespace brindle
