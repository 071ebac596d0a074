// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/window_catalogue.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>

#include <QIcon>

#include "aspect/aspect_ra.h"
#include "audiodisk/audio_calc.h"
#include "audiodisk/hd_calc.h"
#include "base/input/picture.h"
#include "convert/quick_c.h"
#include "extras/about_win.h"
#include "extras/web_update.h"
#include "shell/default_w.h"
#include "split/avi_split.h"
#include "video/advanced.h"
#include "video/bitrate_calc.h"
#include "wav/wav_norm.h"

namespace brindle {
namespace {

// For a window that needs nothing but its services.
template <std::unique_ptr<Form> (*Make)(Services&)>
std::unique_ptr<Form> From(Services& services, const InitDat&) {
  return Make(services);
}

std::unique_ptr<Form> DefaultWFrom(Services& services, const InitDat& initDat) {
  return MakeDefaultW(services, initDat);
}

// The table of the windows. It is a switch without a default, so that the compiler names a window
// that is missing here. A number that is no window's gives an empty entry.
constexpr CatalogueEntry EntryOf(WindowId id) {
  switch (id) {
    case WindowId::BitrateCalc:
      return {id, u"BitrateCalc", u"video_bitrate", From<MakeBitrateCalc>};
    case WindowId::AudioCalc:
      return {id, u"AudioCalc", u"audio_bitrate", From<MakeAudioCalc>};
    case WindowId::HDCalc:
      return {id, u"HDCalc", u"disk_space", From<MakeHDCalc>};
    case WindowId::AVISplit:
      return {id, u"AVISplit", u"avi_split", From<MakeAVISplit>};
    case WindowId::AspectRa:
      return {id, u"AspectRa", u"resolution", From<MakeAspectRa>};
    case WindowId::QuickC:
      return {id, u"QuickC", u"", From<MakeQuickC>};
    case WindowId::WavNorm:
      return {id, u"WavNorm", u"normalizer", From<MakeWavNorm>};
    case WindowId::Advanced:
      return {id, u"Advanced", u"", From<MakeAdvanced>};
    case WindowId::AboutWin:
      return {id, u"AboutWin", u"", From<MakeAboutWin>};
    case WindowId::WebUpdate:
      return {id, u"WebUpdate", u"", From<MakeWebUpdate>};
    case WindowId::DefaultW:
      return {id, u"DefaultW", u"", DefaultWFrom};
  }
  return {};
}

constexpr CatalogueEntry EntryAt(std::size_t index) {
  return EntryOf(static_cast<WindowId>(index));
}

constexpr std::size_t CountWindows() {
  std::size_t count = 0;
  while (!EntryAt(count).name.isEmpty()) {
    ++count;
  }
  return count;
}

constexpr auto ListWindows() {
  std::array<CatalogueEntry, CountWindows()> entries;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    entries[i] = EntryAt(i);
  }
  return entries;
}

constexpr auto Catalogue = ListWindows();

}  // namespace

std::span<const CatalogueEntry> AllWindows() { return Catalogue; }

void AddAllWindows(OwningWindowList& windows, Services& services, const InitDat& initDat) {
  for (const auto& entry : Catalogue) {
    windows.Add(entry.id, [entry, &services, initDat] {
      auto window = entry.make(services, initDat);
      if (!entry.picture.isEmpty()) {
        window->setWindowIcon(
            QIcon(LoadPicture(entry.picture.toString(), window->devicePixelRatio())));
      }
      return window;
    });
  }
}

}  // namespace brindle
