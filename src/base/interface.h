// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// The base of every interface: an implementation is not copied, and can be deleted through it.
class Interface {
 public:
  Interface() = default;
  Interface(const Interface&) = delete;
  Interface& operator=(const Interface&) = delete;
  Interface(Interface&&) = delete;
  Interface& operator=(Interface&&) = delete;
  virtual ~Interface() = default;
};

}  // namespace brindle
