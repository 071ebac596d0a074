// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/reading.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "aspect/resolution.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/numbers/running_time.h"
#include "convert/size_units.h"

namespace brindle {
namespace {

tl::unexpected<std::string> Wrong(std::string_view text, std::string_view reason) {
  return tl::unexpected(Quoted(text) + " " + std::string(reason));
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Digits with at most one period among, before or after them. No sign, blanks or exponent.
bool IsPlainNumber(std::string_view text) {
  const auto digits = std::count_if(text.begin(), text.end(), IsDigit);
  const auto periods = std::count(text.begin(), text.end(), '.');
  return digits > 0 && periods <= 1 && digits + periods == static_cast<std::ptrdiff_t>(text.size());
}

bool IsWholeNumber(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

// The number in `number`, which is `text` or a part of it.
Reading<double> NumberIn(std::string_view text, std::string_view number,
                         std::string_view otherwise) {
  if (text.find(',') != std::string_view::npos) {
    std::string written(text);
    std::replace(written.begin(), written.end(), ',', '.');
    return Wrong(text, "has a comma; decimals are written with a period: " + Quoted(written));
  }
  if (number.starts_with('-') && IsPlainNumber(number.substr(1))) {
    return Wrong(text, "is below 0");
  }
  if (!IsPlainNumber(number)) {
    return Wrong(text, otherwise);
  }
  if (!IsNumeric(number)) {
    return Wrong(text, "is too large");
  }
  return NumberOf(number);
}

// `text` without one of the endings, in any letter case; the longest ending that fits.
std::string_view WithoutEnding(std::string_view text, const std::vector<std::string>& endings) {
  std::size_t length = 0;
  for (const auto& ending : endings) {
    if (Lower(text).ends_with(ending)) {
      length = std::max(length, ending.size());
    }
  }
  return text.substr(0, text.size() - length);
}

}  // namespace

Reading<double> ReadNumber(std::string_view text) {
  return NumberIn(text, text, "is not a number");
}

Reading<std::int16_t> ReadCount(std::string_view text) {
  return NumberIn(text, text, "is not a number")
      .and_then([&](double number) -> Reading<std::int16_t> {
        if (!IsWhole(number) || number < 1 || number > std::numeric_limits<std::int16_t>::max()) {
          return Wrong(text, "is not a whole number from 1 to 32767");
        }
        return ToInteger16(number);
      });
}

Reading<WrittenSize> ReadSize(std::string_view text) {
  constexpr auto forms = "is not a size, such as 700, 700MB, 4.7GB or 734003200B";
  const auto* const unit =
      std::find_if(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0; });
  const auto length = static_cast<std::size_t>(unit - text.begin());
  auto number = text.substr(0, length);
  const auto name = text.substr(length);
  if (!name.empty() && number.ends_with(' ')) {
    number.remove_suffix(1);
  }
  WrittenSize size;
  const auto lower = Lower(name);
  if (lower == "b") {
    size.unit = SizeUnit::B;
  } else if (lower == "kb" || lower == "kib") {
    size.unit = SizeUnit::KB;
  } else if (lower == "gb" || lower == "gib") {
    size.unit = SizeUnit::GB;
  } else if (!lower.empty() && lower != "mb" && lower != "mib") {
    return Wrong(text, forms);
  }
  // Mb are megabits, which nobody means as the size of a disc.
  if (name.size() > 1 && name.ends_with('b') && name != lower) {
    return Wrong(text, "ends in a small b, which stands for bits; bytes are a large B");
  }
  return NumberIn(text, number, forms).and_then([&](double value) -> Reading<WrittenSize> {
    if (value > LargestSize(size.unit)) {
      return Wrong(text, "is more than the largest size, " + TextOf(LargestSize(size.unit)) + " " +
                             std::string(name.empty() ? "MB" : name));
    }
    size.number = value;
    return size;
  });
}

Reading<double> ReadMegaBytes(std::string_view text) {
  return ReadSize(text).map([](const WrittenSize& size) {
    return SizesFrom(size.unit, size.number).at(IndexOf(SizeUnit::MB));
  });
}

namespace {

// A running time of any length.
Reading<WrittenTime> ReadAnyTime(std::string_view text) {
  constexpr auto forms = "is not a running time, such as 102.5, 1:42:30 or 153750f";
  if (text.ends_with('f')) {
    const auto count = text.substr(0, text.size() - 1);
    return NumberIn(text, count, forms).and_then([&](double frames) -> Reading<WrittenTime> {
      if (!IsWholeNumber(count)) {
        return Wrong(text, "is not a whole number of frames");
      }
      return WrittenTime{.frames = frames};
    });
  }
  const auto first = text.find(':');
  if (first == std::string_view::npos) {
    return NumberIn(text, text, forms).map([](double minutes) {
      return WrittenTime{.minutes = minutes};
    });
  }
  const auto second = text.find(':', first + 1);
  if (second == std::string_view::npos) {
    return Wrong(text, "has two parts; write hours, minutes and seconds: 1:42:30");
  }
  const auto hours = text.substr(0, first);
  const auto minutes = text.substr(first + 1, second - first - 1);
  const auto seconds = text.substr(second + 1);
  return NumberIn(text, seconds, forms).and_then([&](double value) -> Reading<WrittenTime> {
    constexpr double sixty = 60;
    if (!IsWholeNumber(hours) || !IsWholeNumber(minutes)) {
      return Wrong(text, forms);
    }
    const RunningTime time{NumberOf(hours), NumberOf(minutes), value};
    if (time.minutes >= sixty || time.seconds >= sixty) {
      return Wrong(text, "has minutes or seconds above 59");
    }
    return WrittenTime{.minutes = InMinutes(time)};
  });
}

}  // namespace

Reading<WrittenTime> ReadTime(std::string_view text) {
  return ReadAnyTime(text).and_then([&](const WrittenTime& time) -> Reading<WrittenTime> {
    // Far beyond any film, but not beyond what can be counted.
    constexpr double mostMinutes = 1e9;
    constexpr double mostFrames = 1e12;
    if (time.minutes > mostMinutes || time.frames.value_or(0) > mostFrames) {
      return Wrong(text, "is too long");
    }
    return time;
  });
}

Reading<double> ReadRate(std::string_view text) {
  constexpr std::array names{"pal", "film", "ntsc"};
  for (std::size_t system = 0; system < names.size(); ++system) {
    if (Lower(text) == names.at(system)) {
      return FramesPerSecond(static_cast<int>(system));
    }
  }
  return NumberIn(text, text, "is not a frame rate, such as 25, 23.976, pal, film or ntsc")
      .and_then([&](double rate) -> Reading<double> {
        constexpr double largest = 1000;
        if (rate <= 0 || rate > largest) {
          return Wrong(text, "is not above 0 and at most 1000 frames per second");
        }
        return rate;
      });
}

Reading<double> ReadKiloBits(std::string_view text) {
  return NumberIn(text, WithoutEnding(text, {"k", "kbps"}),
                  "is not a bitrate in kbps, such as 192");
}

Reading<double> ReadPercent(std::string_view text) {
  return NumberIn(text, WithoutEnding(text, {"%"}), "is not a percentage, such as 98%");
}

Reading<double> ReadShare(std::string_view text) {
  return ReadPercent(text).and_then([&](double percent) -> Reading<double> {
    constexpr double whole = 100;
    return percent <= whole ? Reading<double>(percent) : Wrong(text, "is more than 100%");
  });
}

Reading<bool> ReadSwitch(std::string_view text) {
  if (text != "on" && text != "off") {
    return Wrong(text, "is neither on nor off");
  }
  return text == "on";
}

Reading<std::int16_t> ReadDivX(std::string_view text) {
  if (text == "3") {
    return std::int16_t{0};
  }
  if (text == "4" || text == "5" || text == "4/5") {
    return std::int16_t{1};
  }
  return Wrong(text, "is neither 3 nor 4/5");
}

Reading<WrittenInterval> ReadInterval(std::string_view text) {
  const auto number = WithoutEnding(text, {"ms"});
  const bool isTime = number.size() < text.size();
  return NumberIn(text, number, "is not an interval, such as 400ms or, in frames, 10")
      .and_then([&](double value) -> Reading<WrittenInterval> {
        if (value <= 0 || (!isTime && !IsWhole(value))) {
          return Wrong(text, isTime ? "is not above 0" : "is not a whole number of frames above 0");
        }
        return WrittenInterval{value, isTime};
      });
}

Reading<float> ReadRatio(std::string_view text) {
  constexpr auto forms = "is not a ratio, such as 16:9, 2.35, 4:3 or free";
  constexpr float tooLarge = 100;
  // The names of the standard ratios; all others are numbers.
  constexpr std::array names{"1:1", "4:3", "1.66:1", "16:9", "1.85:1", "2.35:1"};
  if (text == "free") {
    return 0.0F;
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (text == names.at(i)) {
      return StandardRatio(static_cast<int>(i));
    }
  }
  const auto colon = text.find(':');
  const auto width = NumberIn(text, text.substr(0, colon), forms);
  if (!width) {
    return tl::unexpected(width.error());
  }
  const auto height =
      colon == std::string_view::npos ? 1.0 : NumberIn(text, text.substr(colon + 1), forms);
  if (!height) {
    return tl::unexpected(height.error());
  }
  // A number alone is the nearest float to what was typed, as in the window.
  const float ratio =
      colon == std::string_view::npos ? SingleOf(text) : static_cast<float>(*width / *height);
  if (!(ratio > 0) || !(ratio < tooLarge)) {
    return Wrong(text, "is not a ratio above 0 and below 100");
  }
  return ratio;
}

}  // namespace brindle
