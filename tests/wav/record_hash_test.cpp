// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/record_hash.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

#include <gtest/gtest.h>

#define XXH_INLINE_ALL
#include <xxhash.h>

#include "wav/samples.h"

namespace brindle {
namespace {

std::vector<std::byte> SomeBytes(std::size_t count) {
  std::mt19937 random(5);  // NOLINT(cert-msc51-cpp): the same bytes every time
  std::vector<std::byte> bytes(count);
  for (auto& byte : bytes) {
    byte = static_cast<std::byte>(random());
  }
  return bytes;
}

// The processor of a machine on which a record is read may not be that of the one that wrote it.
TEST(RecordHash, IsTheSameOnEveryProcessor) {
  const auto bytes = SomeBytes(70'000);
  const std::span all(bytes);
  for (std::size_t length = 0; length < 1'500; ++length) {
    const auto part = all.subspan(length % 16, length);
    ASSERT_EQ(HashOf(part), XXH3_64bits(part.data(), part.size())) << length;
  }
  EXPECT_EQ(HashOf(all), XXH3_64bits(all.data(), all.size()));
}

// As any program that knows XXH3 says.
TEST(RecordHash, IsXxh3) { EXPECT_EQ(HashOf({}), 0x2d06800538d394c2U); }

TEST(RecordHash, OfAPieceIsThatOfTheHashesOfItsBlocks) {
  std::vector<std::int16_t> words(BlockWords + 3);
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = static_cast<std::int16_t>(i * 7);
  }
  const std::span all(words);
  const std::vector<quint64> hashes{HashOf(std::as_bytes(all.first(BlockWords))),
                                    HashOf(std::as_bytes(all.last(3)))};
  EXPECT_EQ(HashOfPiece(all), HashOfBlocks(hashes));
  EXPECT_EQ(HashOfBlocks(hashes), HashOf(std::as_bytes(std::span(hashes))));
}

}  // namespace
}  // namespace brindle
