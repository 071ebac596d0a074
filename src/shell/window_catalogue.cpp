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
  windows.Add(WindowId::BitrateCalc, [&] { return MakeBitrateCalc(services); });
  windows.Add(WindowId::AudioCalc, [&] { return MakeAudioCalc(services); });
  windows.Add(WindowId::HDCalc, [&] { return MakeHDCalc(services); });
  windows.Add(WindowId::AVISplit, [&] { return MakeAVISplit(services); });
  windows.Add(WindowId::QuickC, [&] { return MakeQuickC(services); });
  windows.Add(WindowId::AspectRa, [&] { return MakeAspectRa(services); });
  windows.Add(WindowId::WavNorm, [&] { return MakeWavNorm(services); });
  windows.Add(WindowId::Advanced, [&] { return MakeAdvanced(services); });
  windows.Add(WindowId::AboutWin, [&] { return MakeAboutWin(services); });
  windows.Add(WindowId::WebUpdate, [&] { return MakeWebUpdate(services); });
  windows.Add(WindowId::DefaultW, [&services, initDat] { return MakeDefaultW(services, initDat); });
}

}  // namespace brindle
