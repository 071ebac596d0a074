// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/input/text_field.h"

namespace brindle {

// A field of frames and the running time (`minutes`) that it stands for, at one frame rate.

/// Sets `minutes` to the running time of the field's frames, none for an empty field. Without a
/// frame rate it keeps its value.
void StoreMinutesOfFrames(const TextField* frames, double framesPerSecond, double& minutes);

/// Writes the whole frames of `minutes` and rounds that down to them. Where they are out of range,
/// which shows as nothing, or without a frame rate, `minutes` keeps its value.
void WriteFramesOfMinutes(TextField* frames, double framesPerSecond, double& minutes);

}  // namespace brindle
