// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include <QString>

#include "base/settings/settings.h"
#include "base/settings/settings_lines.h"

namespace brindle {

using Value = std::variant<double, float, std::int16_t, bool, QString>;

/// One line of the settings file as a person would describe it: the field, its built-in value and
/// that value's text, then another value and its text.
struct KnownLine {
  const char* name = "";
  SettingsField field;
  Value builtIn;
  const char* builtInText = "";
  Value other;
  const char* otherText = "";
};

inline KnownLine DoubleLine(const char* name, double Settings::*field, double builtIn,
                            const char* builtInText, double other, const char* otherText) {
  return {name, field, builtIn, builtInText, other, otherText};
}

inline KnownLine SingleLine(const char* name, float Settings::*field, float builtIn,
                            const char* builtInText, float other, const char* otherText) {
  return {name, field, builtIn, builtInText, other, otherText};
}

inline KnownLine IntegerLine(const char* name, std::int16_t Settings::*field, std::int16_t builtIn,
                             const char* builtInText, std::int16_t other, const char* otherText) {
  return {name, field, builtIn, builtInText, other, otherText};
}

inline KnownLine BooleanLine(const char* name, bool Settings::*field, bool builtIn) {
  constexpr auto text = [](bool value) { return value ? "#TRUE#" : "#FALSE#"; };
  return {name, field, builtIn, text(builtIn), !builtIn, text(!builtIn)};
}

inline KnownLine TextLine(const char* name, QString Settings::*field, const char* builtIn,
                          const char* other) {
  return {name, field, QString::fromUtf8(builtIn), builtIn, QString::fromUtf8(other), other};
}

/// The 42 lines in order. The value of line 12 is the state of the SaveOnExit check box. The
/// built-in values of ExtraMaterial and HDVideoMode are those of a first run.
inline const std::vector<KnownLine>& KnownLines() {
  using S = Settings;
  static const std::vector<KnownLine> lines{
      DoubleLine("VideoFrameOverhead", &S::VideoFrameOverhead, 0.5859375, "0.5859375", 1.25,
                 "1.25"),
      DoubleLine("AudioInterleaveOverhead", &S::AudioInterleaveOverhead, 0.5859375, "0.5859375",
                 0.1, "0.1"),
      IntegerLine("InterleaveOption", &S::InterleaveOption, 2, "2", 4, "4"),
      IntegerLine("VideoOverheadOn", &S::VideoOverheadOn, 1, "1", 0, "0"),
      IntegerLine("AudioOverheadOn", &S::AudioOverheadOn, 1, "1", 0, "0"),
      DoubleLine("InterleaveTime", &S::InterleaveTime, 400, "400", 96.5, "96.5"),
      DoubleLine("InterleaveFrames1", &S::InterleaveFrames1, 1, "1", 25, "25"),
      DoubleLine("InterleaveFrames2", &S::InterleaveFrames2, 1, "1", 23.976, "23.976"),
      DoubleLine("InterleaveFrames3", &S::InterleaveFrames3, 1, "1", 29.97, "29.97"),
      DoubleLine("MovieLength", &S::MovieLength, 100, "100", 125.5, "125.5"),
      IntegerLine("FrameRateSystem", &S::FrameRateSystem, 0, "0", 2, "2"),
      {"SaveOnExit", SaveOnExitLine{}, true, "1", false, "0"},
      DoubleLine("AudioBitrate", &S::AudioBitrate, 128, "128", 448, "448"),
      IntegerLine("CDCount", &S::CDCount, 1, "1", 3, "3"),
      DoubleLine("CDCapacity", &S::CDCapacity, 700, "700", 4482.0625, "4482.0625"),
      DoubleLine("ExtraMaterial", &S::ExtraMaterial, 0, "0", 25, "25"),
      DoubleLine("HDVideoMode", &S::HDVideoMode, 0, "0", 1, "1"),
      DoubleLine("HDVideoBitrate", &S::HDVideoBitrate, 910, "910", 1500, "1500"),
      IntegerLine("HDAudioType", &S::HDAudioType, 0, "0", 2, "2"),
      DoubleLine("HDAudioBitrate", &S::HDAudioBitrate, 224, "224", 384, "384"),
      DoubleLine("VideoOnlySize", &S::VideoOnlySize, 550, "550", 612.25, "612.25"),
      DoubleLine("TargetAVISize", &S::TargetAVISize, 700, "700", 1400, "1400"),
      DoubleLine("SplitSegmentsMode", &S::SplitSegmentsMode, 0, "0", 1, "1"),
      DoubleLine("SplitAVISize", &S::SplitAVISize, 1300, "1300", 2047.5, "2047.5"),
      DoubleLine("SplitSize1", &S::SplitSize1, 700, "700", 33.1, "33.1"),
      DoubleLine("SplitSize2", &S::SplitSize2, 700, "700", 67.2, "67.2"),
      IntegerLine("KeyframeInterval", &S::KeyframeInterval, 10, "10", 12, "12"),
      DoubleLine("QuickSizeMB", &S::QuickSizeMB, 1024, "1024", 0.001, "0.001"),
      IntegerLine("DivXOption", &S::DivXOption, 1, "1", 0, "0"),
      BooleanLine("WavAutoNormalize", &S::WavAutoNormalize, false),
      BooleanLine("WavRememberFolders", &S::WavRememberFolders, true),
      BooleanLine("WavOverwriteSource", &S::WavOverwriteSource, true),
      IntegerLine("WavNormalizePercent", &S::WavNormalizePercent, 100, "100", -20, "-20"),
      SingleLine("WavTolerance", &S::WavTolerance, 6, "6", 0.1F, "0.1"),
      IntegerLine("ResHorizontal", &S::ResHorizontal, 592, "592", 640, "640"),
      IntegerLine("ResVertical", &S::ResVertical, 336, "336", 272, "272"),
      IntegerLine("AspectMode", &S::AspectMode, 1, "1", 2, "2"),
      IntegerLine("StandardAspect", &S::StandardAspect, 3, "3", 0, "0"),
      SingleLine("CustomAspect", &S::CustomAspect, 1.778F, "1.778", 2.35F, "2.35"),
      BooleanLine("WavMultiBuffer", &S::WavMultiBuffer, true),
      TextLine("WavSourceFile", &S::WavSourceFile, "", "/home/ann/Concert 1.wav"),
      TextLine("WavTargetFile", &S::WavTargetFile, "C:\\Out.wav", "D:\\Sound\\Target.wav"),
  };
  return lines;
}

/// What the file stores: the record's stored fields and the check box.
struct Stored {
  Settings record;
  bool saveOnExit = false;
};

inline Value ValueIn(const Stored& stored, const SettingsField& field) {
  return std::visit(
      [&](auto member) -> Value {
        if constexpr (std::is_member_pointer_v<decltype(member)>) {
          return stored.record.*member;
        } else {
          return stored.saveOnExit;
        }
      },
      field);
}

inline void Put(const Value& value, const SettingsField& field, Stored& stored) {
  std::visit(
      [&](auto member) {
        if constexpr (std::is_member_pointer_v<decltype(member)>) {
          auto& place = stored.record.*member;
          place = std::get<std::remove_reference_t<decltype(place)>>(value);
        } else {
          stored.saveOnExit = std::get<bool>(value);
        }
      },
      field);
}

/// For messages of failing tests.
inline std::string Shown(const Value& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Type = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Type, QString>) {
          return "text " + held.toStdString();
        } else if constexpr (std::is_same_v<Type, double>) {
          return "double " + std::to_string(held);
        } else if constexpr (std::is_same_v<Type, float>) {
          return "single " + std::to_string(held);
        } else if constexpr (std::is_same_v<Type, bool>) {
          return held ? "true" : "false";
        } else {
          return "integer " + std::to_string(held);
        }
      },
      value);
}

/// The texts of a file of a first run, line by line.
inline std::vector<std::string> BuiltInTexts() {
  std::vector<std::string> texts;
  for (const auto& line : KnownLines()) {
    texts.emplace_back(line.builtInText);
  }
  return texts;
}

inline std::string Joined(const std::vector<std::string>& texts, std::string_view end) {
  std::string joined;
  for (const auto& text : texts) {
    joined.append(text).append(end);
  }
  return joined;
}

/// The lines with the built-in values, except that line `number` (from 1) has the given text.
inline std::vector<std::string> TextsWith(std::size_t number, std::string_view text) {
  auto texts = BuiltInTexts();
  texts.at(number - 1) = text;
  return texts;
}

}  // namespace brindle
