// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/text_field.h"

namespace brindle {

/// The fields of the split calculator in which a person types.
struct SplitFields {
  TextField& avi;        ///< MB of the file
  TextField& frames;     ///< of the file
  TextField& first;      ///< MB of the first part
  TextField& second;     ///< MB of the second part; of two parts computed
  TextField& keyFrames;  ///< seconds from one to the next
};

/// The sizes that were typed, in MB, as the settings record has them.
struct TypedSizes {
  double first = 0;
  double second = 0;
};

/// Puts "1" into empty fields and cuts the sizes of the parts to fit the file. Leaves the field
/// that is being edited alone, and deliberately stores nothing of what it cuts: the next opening
/// shows what the user typed (SplitLoading). While the size of the file is typed, every key starts
/// from the sizes that were typed: 1400 passes 1, 14 and 140.
void FillBlanks(const SplitFields& fields, const TypedSizes& typed, bool isThree,
                const TextField* editing);

/// Makes what was typed a whole number of frames. A number that the program wrote is whole already,
/// and no limit applies to it.
void TakeWholeFrames(TextField& frames);

/// Shrinks the seconds from one key frame to the next. Deliberately divides twice at most: 50000
/// becomes 500 and stays, as it always has (KeyFsEntry, IsDividedByTenTwiceAtMost).
void LimitInterval(TextField& seconds);

/// Shows what remains of the file; nothing if that is less than nothing.
void WriteOrClear(TextField& field, double value);

}  // namespace brindle
