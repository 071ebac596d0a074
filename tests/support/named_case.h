// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>
#include <string>

namespace brindle {
// In the unnamed namespace of the file that includes this: there the test framework looks for the
// printer of that file's types.
namespace {

/// A row of a table of cases; its name appears in test lists and failures.
template <class Case>
concept Named = requires(const Case& row) {
  row.name;
};

template <Named Case>
void PrintTo(const Case& row, std::ostream* out) {
  *out << row.name;
}

constexpr auto NameOf = [](const auto& info) { return std::string(info.param.name); };

}  // namespace
}  // namespace brindle
