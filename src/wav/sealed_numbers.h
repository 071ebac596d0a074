// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace brindle {

/// Numbers into bytes, lowest byte first.
class NumberWriter {
 public:
  NumberWriter() : stream_(&bytes_, QIODevice::WriteOnly) {
    stream_.setByteOrder(QDataStream::LittleEndian);
    stream_.setVersion(QDataStream::Qt_6_4);
  }
  template <class... Values>
  QByteArray Of(const Values&... values) {
    (stream_ << ... << values);
    return bytes_;
  }

 private:
  QByteArray bytes_;
  QDataStream stream_;
};

/// Bytes into numbers.
class NumberReader {
 public:
  explicit NumberReader(const QByteArray& bytes) : stream_(bytes) {
    stream_.setByteOrder(QDataStream::LittleEndian);
    stream_.setVersion(QDataStream::Qt_6_4);
  }
  /// Whether they were all there.
  template <class... Values>
  [[nodiscard]] bool To(Values&... values) {
    (stream_ >> ... >> values);
    return stream_.status() == QDataStream::Ok;
  }
  [[nodiscard]] bool IsAtEnd() const { return stream_.atEnd(); }

 private:
  QDataStream stream_;
};

[[nodiscard]] inline std::span<const std::byte> AsBytes(const QByteArray& array) {
  return std::as_bytes(std::span(array.constData(), static_cast<std::size_t>(array.size())));
}

/// The bytes with their hash in front.
[[nodiscard]] QByteArray Sealed(const QByteArray& bytes);

/// The bytes after a hash, if it is theirs.
[[nodiscard]] std::optional<QByteArray> Unsealed(const QByteArray& sealed);

}  // namespace brindle
