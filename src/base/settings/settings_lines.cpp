// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QStringDecoder>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"

namespace brindle {
namespace {

constexpr std::array<SettingsLine, SettingsLineCount> Lines{{
    {&Settings::VideoFrameOverhead},  {&Settings::AudioInterleaveOverhead},
    {&Settings::InterleaveOption},    {&Settings::VideoOverheadOn},
    {&Settings::AudioOverheadOn},     {&Settings::InterleaveTime},
    {&Settings::InterleaveFrames1},   {&Settings::InterleaveFrames2},
    {&Settings::InterleaveFrames3},   {&Settings::MovieLength, false, true},
    {&Settings::FrameRateSystem},     {SaveOnExitLine{}},
    {&Settings::AudioBitrate},        {&Settings::CDCount},
    {&Settings::CDCapacity},          {&Settings::ExtraMaterial, true},
    {&Settings::HDVideoMode, true},   {&Settings::HDVideoBitrate},
    {&Settings::HDAudioType},         {&Settings::HDAudioBitrate},
    {&Settings::VideoOnlySize},       {&Settings::TargetAVISize},
    {&Settings::SplitSegmentsMode},   {&Settings::SplitAVISize},
    {&Settings::SplitSize1},          {&Settings::SplitSize2},
    {&Settings::KeyframeInterval},    {&Settings::QuickSizeMB, false, true},
    {&Settings::DivXOption},          {&Settings::WavAutoNormalize},
    {&Settings::WavRememberFolders},  {&Settings::WavOverwriteSource},
    {&Settings::WavNormalizePercent}, {&Settings::WavTolerance},
    {&Settings::ResHorizontal},       {&Settings::ResVertical},
    {&Settings::AspectMode},          {&Settings::StandardAspect},
    {&Settings::CustomAspect},        {&Settings::WavMultiBuffer},
    {&Settings::WavSourceFile},       {&Settings::WavTargetFile},
}};

// Some editors put it in front of a text in UTF-8.
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view True = "#TRUE#";
constexpr std::string_view False = "#FALSE#";

// A value that is not finite has no text; it is stored as 0, like a rate that cannot be computed.
std::string NumberOrZero(const std::string& text) { return text.empty() ? "0" : text; }

std::string Text(double value, bool isExact) {
  return NumberOrZero(isExact ? ExactTextOf(value) : TextOf(value));
}
std::string Text(float value, bool) { return NumberOrZero(TextOfSingle(value)); }
std::string Text(std::int16_t value, bool) { return std::to_string(value); }
std::string Text(bool value, bool) { return std::string(value ? True : False); }
std::string Text(const QString& value, bool) {
  const bool breaksLine = value.contains(u'\n') || value.contains(u'\r');
  return breaksLine ? std::string() : value.toStdString();
}

bool Read(std::string_view text, double& value) {
  value = NumberOf(text);
  return IsNumeric(text);
}

bool Read(std::string_view text, float& value) {
  value = SingleOf(text);
  return IsNumeric(text);
}

bool Read(std::string_view text, std::int16_t& value) {
  value = ToInteger16(NumberOf(text));
  return IsNumeric(text);
}

bool Read(std::string_view text, bool& value) {
  constexpr std::string_view blanks = " \t";
  const auto first = std::min(text.find_first_not_of(blanks), text.size());
  const auto last = text.find_last_not_of(blanks);
  const auto word = text.substr(first, last - first + 1);
  value = word == True;
  return word == True || word == False;
}

bool Read(std::string_view text, QString& value) {
  // A byte order mark in front is part of the text like any other character.
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  value = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return true;
}

std::vector<std::string_view> Split(std::string_view bytes) {
  std::vector<std::string_view> lines;
  while (!bytes.empty()) {
    const auto end = std::min(bytes.find('\n'), bytes.size());
    auto line = bytes.substr(0, end);
    if (end < bytes.size() && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    lines.push_back(line);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return lines;
}

}  // namespace

std::span<const SettingsLine, SettingsLineCount> SettingsLines() { return Lines; }

QByteArray WriteLines(const Settings& record, bool saveOnExit) {
  std::string bytes;
  for (const auto& line : Lines) {
    bytes += std::visit(
        [&](auto field) {
          if constexpr (std::is_member_pointer_v<decltype(field)>) {
            return Text(record.*field, line.isExact);
          } else {
            return std::string(saveOnExit ? "1" : "0");
          }
        },
        line.field);
    bytes += "\r\n";
  }
  return QByteArray::fromStdString(bytes);
}

std::optional<ReadLinesResult> ReadLines(const QByteArray& bytes, Settings record) {
  std::string_view text(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  if (text.starts_with(ByteOrderMark)) {
    text.remove_prefix(ByteOrderMark.size());
  }
  const auto texts = Split(text);
  if (texts.size() != Lines.size()) {
    return std::nullopt;
  }
  ReadLinesResult result{std::move(record)};
  for (std::size_t i = 0; i < Lines.size(); ++i) {
    const bool usable = std::visit(
        [&](auto field) {
          if constexpr (std::is_member_pointer_v<decltype(field)>) {
            return Read(texts[i], result.record.*field);
          } else {
            std::int16_t box = 0;
            const bool read = Read(texts[i], box);
            result.saveOnExit = box == 1;
            return read;
          }
        },
        Lines[i].field);
    if (!usable) {
      return std::nullopt;
    }
  }
  return result;
}

}  // namespace brindle
