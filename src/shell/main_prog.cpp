// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/main_prog.h"

#include <array>
#include <exception>
#include <functional>
#include <memory>
#include <utility>

#include <QByteArray>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QPushButton>
#include <QString>

#include "base/input/check_box.h"
#include "base/input/file_drop.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/picture.h"
#include "base/input/push_button.h"
#include "base/input/wiring.h"
#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/settings/settings_lines.h"
#include "base/windows/file_opener.h"
#include "extras/start_up_entry.h"
#include "shell/quoted_part.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PictureSize(48, 48);  // device-independent pixels

QGroupBox* Framed(const QString& caption, QLayout* content) {
  auto* frame = new Frame(caption);
  content->setContentsMargins(Margin, Margin, Margin, Margin);
  frame->setLayout(content);
  return frame;
}

struct Described {
  QPushButton* button = nullptr;
  QString description;
};

QLayout* DescribedButtons(const std::array<Described, 5>& buttons) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(Margin);
  grid->setVerticalSpacing(Spacing);
  grid->setColumnStretch(1, 1);
  int line = 0;
  for (const auto& [button, description] : buttons) {
    grid->addWidget(button, line, 0);
    grid->addWidget(new DescriptionLabel(description), line, 1);
    ++line;
  }
  return grid;
}

// A button with a picture. Its accessible name, which a screen reader says, is the caption of the
// window that it opens.
class PictureButton : public PushButton {
 public:
  PictureButton(const QString& name, const QString& picture, const QString& opens,
                const QString& tooltip = {}) {
    setObjectName(name);
    setIcon(QIcon(LoadPicture(picture, devicePixelRatio())));
    setIconSize(PictureSize);
    setAccessibleName(opens);
    setToolTip(tooltip);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  }
};

class MainProgWindow final : public MainProg {
  Services& services_;
  ProgramFolders folders_;
  bool unloaded_ = false;
  bool isUnasked_ = false;

  PictureButton VideoBC{u"VideoBC"_s, u"video_bitrate"_s,
                        u"Velbrin's Brindle 2 : Video Bitrate Calc"_s};
  PictureButton AudioBC{u"AudioBC"_s, u"audio_bitrate"_s,
                        u"Velbrin's Brindle 2 : Audio Bitrate Calc"_s};
  PictureButton HDC{u"HDC"_s, u"disk_space"_s, u"Velbrin's Brindle 2 : HD Space Calc"_s};
  PictureButton AVISplitC{u"AVISplitC"_s, u"avi_split"_s,
                          u"Velbrin's Brindle 2 : AVI Splitting Calc"_s};
  PictureButton RAR{u"RAR"_s, u"resolution"_s,
                    u"Velbrin's Brindle 2 : Resolution / Aspect Ratio Calc"_s};
  PushButton QuickCon{u"QuickCon"_s, u"Quick Converter"_s};
  PushButton WinCalc{u"WinCalc"_s, u"Windows Calculator"_s};
  PictureButton Normalize{u"Normalize"_s, u"normalizer"_s, u"WAV Normalizer (rev3)"_s,
                          u"Easily normalize any 16bit PCM WAV file"_s};
  PictureButton Adremove{u"Adremove"_s, u"start_up_entry"_s, u"Disable DivX 5 pro GAIN spyware"_s,
                         u"Disable DivX 5 pro GAIN spyware"_s};
  PushButton HelpWin{u"HelpWin"_s, u"Help"_s};
  PushButton Update{u"Update"_s, u"Check for Updates"_s,
                    u"If you are connected to the internet you can check for updates"_s};
  CheckBox SaveOnExit{u"SaveOnExit"_s, u"Save On Exit"_s,
                      u"Save settings upon exiting the program"_s};
  PushButton Defaults{u"Defaults"_s, u"Load Defaults"_s, u"Load the default settings"_s};
  PushButton SaveSettings{u"SaveSettings"_s, u"Save Settings"_s, u"Save current settings"_s};
  PushButton About{u"About"_s, u"About..."_s, u"Some basic info on the program and the author"_s};
  PushButton Webs{u"Webs"_s, u"Velbrin's Website"_s, u"Visit velbrin's website."_s};

 public:
  MainProgWindow(Services& services, ProgramFolders folders)
      : MainProg(u"MainProg"_s, u"Velbrin's Brindle 2.91 DX"_s, Escape::IsIgnored),
        services_(services),
        folders_(std::move(folders)) {
    // clang-format off
    LayOut(this,
      Across({
        Framed(u"Calculators"_s,
          Down({
            DescribedButtons({{
              {&VideoBC, u"Calculate the DivX bitrate based on movie length and target size."_s},
              {&AudioBC, u"Calculate the optimal MP3/WMA bitrate after encoding the video."_s},
              {&HDC, u"Calculate the space for the AVI and WAV, AC3 or MP3 files."_s},
              {&AVISplitC, u"Calculate which frames to delete for spliting the AVI to 2 or 3 parts."_s},
              {&RAR, u"Calculate a suitable resolution for video based on the Aspect Ratio."_s},
            }}),
            Across({&QuickCon, &WinCalc}, Spacing),
          })),
        Down({
          Framed(u"Tools"_s, Across({Item::Stretch(), &Normalize, &Adremove, Item::Stretch()}, Margin)),
          Framed(u"Extra"_s,
            Down({
              &HelpWin,
              &Update,
              &SaveOnExit,
              &Defaults,
              &SaveSettings,
              &About,
              &Webs,
            }, Spacing)),
          Item::Stretch(),
        }),
      }));
    // clang-format on

    WireEvents();
    connect(this, &Form::HelpAsked, this,
            [this] { services_.desktop.OpenHelp(this, objectName()); });
    TakeDrops();
    Focus().Begin(&VideoBC);
    Form_Load();
  }

  void InitDat(const std::function<void()>& then) override {
    ResetToBuiltIn(services_.record);
    SaveOnExit.setChecked(true);
    WriteSettings(then);
  }

  void CloseUnasked() override {
    services_.windows.CloseAllUnasked();
    isUnasked_ = true;
    close();
  }

 protected:
  // The windows may be against it; they are asked before anything is saved.
  void AskToClose(const std::function<void()>& agreed) override {
    if (isUnasked_) {
      Unload(agreed);
    } else {
      services_.windows.AskAllToClose([this, agreed] { Unload(agreed); });
    }
  }

 private:
  void WireEvents() {
    using Self = MainProgWindow;
    const Wires on(this);
    on(VideoBC).Click(&Self::VideoBC_Click);
    on(AudioBC).Click(&Self::AudioBC_Click);
    on(HDC).Click(&Self::HDC_Click);
    on(AVISplitC).Click(&Self::AVISplitC_Click);
    on(RAR).Click(&Self::RAR_Click);
    on(QuickCon).Click(&Self::QuickCon_Click);
    on(WinCalc).Click(&Self::WinCalc_Click);
    on(Normalize).Click(&Self::Normalize_Click);
    on(Adremove).Click(&Self::Adremove_Click);
    on(HelpWin).Click(&Self::HelpWin_Click);
    on(Update).Click(&Self::Update_Click);
    on(Defaults).Click(&Self::Defaults_Click);
    on(SaveSettings).Click(&Self::SaveSettings_Click);
    on(About).Click(&Self::About_Click);
    on(Webs).Click(&Self::Webs_Click);
  }

  // A file that is dropped on a button goes to the window that the button opens.
  void TakeDrops() {
    OpenDropped(VideoBC, WindowId::BitrateCalc);
    OpenDropped(AudioBC, WindowId::AudioCalc);
    OpenDropped(HDC, WindowId::HDCalc);
    OpenDropped(AVISplitC, WindowId::AVISplit);
    OpenDropped(RAR, WindowId::AspectRa);
    OpenDropped(QuickCon, WindowId::QuickC);
    OpenDropped(Normalize, WindowId::WavNorm);
  }

  void OpenDropped(QPushButton& button, WindowId id) {
    connect(new FileDrop(&button), &FileDrop::Dropped, this, [this, id](const QString& path) {
      if (GuardedShow(id)) {
        dynamic_cast<FileOpener&>(services_.windows.Load(id)).OpenFile(path);
      }
    });
  }

  void Form_Load() {
    Settings& record = services_.record;
    record.SpinRepeatInterval = 0.05F;
    record.SpinFirstDelay = 0.5F;
    record.AppFolder = ChooseAppFolder(folders_.program, folders_.config);

    const SettingsFile file(record.AppFolder);
    file.SweepLeftovers();
    const auto bytes = file.Read();
    if (!bytes) {
      UseDefaultsUnsaved(CannotRead(bytes.error()));
    } else if (bytes->isEmpty()) {
      InitDat([] {});
    } else if (!ReadSettings(*bytes)) {
      if (const auto kept = file.KeepUnusable()) {
        InitDat([] {});
      } else {
        UseDefaultsUnsaved(CannotWrite(kept.error()));
      }
    }
  }

  bool ReadSettings(const QByteArray& bytes) {
    auto read = ReadLines(bytes, services_.record);
    if (read) {
      services_.record = std::move(read->record);
      SaveOnExit.setChecked(read->saveOnExit);
    }
    return read.has_value();
  }

  // Leaves the file as it is, now and at the end, until the user asks for a save.
  void UseDefaultsUnsaved(const QString& reason) {
    ResetToBuiltIn(services_.record);
    SaveOnExit.setChecked(false);
    services_.boxes.Tell(this, reason);
  }

  void WriteSettings(const std::function<void()>& then) {
    const SettingsFile file(services_.record.AppFolder);
    const auto written = file.Write(WriteLines(services_.record, SaveOnExit.isChecked()));
    if (written) {
      then();
    } else {
      services_.boxes.Ask(this, CannotWrite(written.error()), BoxButtons::Ok,
                          [then](BoxAnswer) { then(); });
    }
  }

  void Unload(const std::function<void()>& then) {
    if (std::exchange(unloaded_, true) || !SaveOnExit.isChecked()) {
      then();
    } else {
      WriteSettings(then);
    }
  }

  void VideoBC_Click() { services_.windows.Open(WindowId::BitrateCalc); }
  void AudioBC_Click() { services_.windows.Open(WindowId::AudioCalc); }
  void HDC_Click() { services_.windows.Open(WindowId::HDCalc); }
  void AVISplitC_Click() { services_.windows.Open(WindowId::AVISplit); }
  void RAR_Click() { GuardedShow(WindowId::AspectRa); }
  void QuickCon_Click() { services_.windows.Open(WindowId::QuickC); }
  void WinCalc_Click() { services_.desktop.StartCalculator(this); }
  void Normalize_Click() { GuardedShow(WindowId::WavNorm); }
  void Adremove_Click() { RemoveStartUpEntry(this, services_.boxes, services_.registry); }
  void HelpWin_Click() { services_.desktop.OpenHelp(this, FirstHelpPage.toString()); }
  void Update_Click() { services_.windows.Open(WindowId::WebUpdate); }
  void Defaults_Click() { services_.windows.Open(WindowId::DefaultW); }
  void SaveSettings_Click() {
    WriteSettings([] {});
  }
  void About_Click() { services_.windows.Open(WindowId::AboutWin); }
  void Webs_Click() { services_.desktop.OpenAddress(this, services_.product.website); }

  // For the two windows that may lack a shared library on the user's system. Whether it is shown.
  bool GuardedShow(WindowId id) {
    try {
      services_.windows.Open(id);
      return true;
    } catch (const std::exception& error) {
      const QString text = u"You are missing a shared library file ("_s +
                           QuotedPart(QString::fromUtf8(error.what())) +
                           u"). Please visit the program homepage\r\nat : "_s +
                           services_.product.website +
                           u" and download the FULL installation package."_s;
      services_.boxes.Ask(this, text, BoxButtons::CancelTryAgainContinue, [](BoxAnswer) {});
      return false;
    }
  }
};

}  // namespace

std::unique_ptr<MainProg> MakeMainProg(Services& services, ProgramFolders folders) {
  return std::make_unique<MainProgWindow>(services, std::move(folders));
}

}  // namespace brindle
