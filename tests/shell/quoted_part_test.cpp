// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/quoted_part.h"

#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

struct QuotedCase {
  std::string name;
  QString text;
  QString part;
};

class TakesQuotedPart : public ::testing::TestWithParam<QuotedCase> {};

TEST_P(TakesQuotedPart, AsExpected) { EXPECT_EQ(QuotedPart(GetParam().text), GetParam().part); }

using namespace Qt::StringLiterals;

INSTANTIATE_TEST_SUITE_P(Cases, TakesQuotedPart,
                         ::testing::Values(QuotedCase{"Empty", {}, {}},
                                           QuotedCase{"NoQuote", u"plain text"_s, {}},
                                           QuotedCase{"OneQuoteOnly", u"'"_s, {}},
                                           QuotedCase{"OneQuoteInside", u"it's"_s, {}},
                                           QuotedCase{"AFileName",
                                                      u"Component 'slide.ocx' is missing"_s,
                                                      u"slide.ocx"_s},
                                           QuotedCase{"TwoQuotesInARow", u"''abc"_s, {}},
                                           QuotedCase{"QuotesAround", u"'abc'"_s, u"abc"_s},
                                           QuotedCase{"ThreeQuotes", u"a'b'c'd"_s, u"b"_s},
                                           QuotedCase{"FourQuotes", u"'a' and 'b'"_s, u"a"_s}),
                         NameOf);

}  // namespace
}  // namespace brindle
