// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/window_catalogue.h"

#include <functional>
#include <memory>

#include "aspect/aspect_ra.h"
#include "audiodisk/audio_calc.h"
#include "audiodisk/hd_calc.h"
#include "convert/quick_c.h"
#include "extras/about_win.h"
#include "extras/web_update.h"
#include "shell/default_w.h"
#include "split/avi_split.h"
#include "video/advanced.h"
#include "video/bitrate_calc.h"
#include "wav/wav_norm.h"

namespace brindle {

void AddAllWindows(OwningWindowList& windows, Services& services,
                   const std::function<void()>& initDat) {
  windows.Add(WindowId::BitrateCalc, [&] { return std::make_unique<BitrateCalc>(services); });
  windows.Add(WindowId::AudioCalc, [&] { return std::make_unique<AudioCalc>(services); });
  windows.Add(WindowId::HDCalc, [&] { return std::make_unique<HDCalc>(services); });
  windows.Add(WindowId::AVISplit, [&] { return std::make_unique<AVISplit>(services); });
  windows.Add(WindowId::QuickC, [&] { return std::make_unique<QuickC>(services); });
  windows.Add(WindowId::AspectRa, [&] { return std::make_unique<AspectRa>(services); });
  windows.Add(WindowId::WavNorm, [&] { return MakeWavNorm(services); });
  windows.Add(WindowId::Advanced, [&] { return std::make_unique<Advanced>(services); });
  windows.Add(WindowId::AboutWin, [&] { return std::make_unique<AboutWin>(services); });
  windows.Add(WindowId::WebUpdate, [&] { return std::make_unique<WebUpdate>(services); });
  windows.Add(WindowId::DefaultW,
              [&services, initDat] { return std::make_unique<DefaultW>(services, initDat); });
}

}  // namespace brindle
