// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

namespace brindle {

/// A variable of the environment, which gets its old value back at the end.
class Environment {
 public:
  explicit Environment(const char* name)
      : name_(name), wasSet_(qEnvironmentVariableIsSet(name)), before_(qgetenv(name)) {}
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  Environment(Environment&&) = delete;
  Environment& operator=(Environment&&) = delete;
  ~Environment() {
    if (wasSet_) {
      qputenv(name_, before_);
    } else {
      qunsetenv(name_);
    }
  }

  void Set(const QString& value) { qputenv(name_, value.toLocal8Bit()); }
  void Unset() { qunsetenv(name_); }

 private:
  const char* name_;
  bool wasSet_;
  QByteArray before_;
};

}  // namespace brindle
