// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/main_prog.h"

#include <array>
#include <exception>
#include <functional>
#include <utility>

#include <QByteArray>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QPushButton>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/picture.h"
#include "base/input/push_button.h"
#include "base/input/wiring.h"
#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/settings/settings_lines.h"
#include "extras/start_up_entry.h"
#include "shell/quoted_part.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize PictureSize(48, 48);  // device-independent pixels

// `name` is the button's own, `opens` the caption of the window behind it: what a screen reader
// says.
QPushButton* PictureButton(const QString& name, const QString& picture, const QString& opens,
                           const QString& tooltip = {}) {
  auto* button = new PushButton;
  button->setObjectName(name);
  button->setIcon(QIcon(LoadPicture(picture, button->devicePixelRatio())));
  button->setIconSize(PictureSize);
  button->setAccessibleName(opens);
  button->setToolTip(tooltip);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  return button;
}

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

}  // namespace

MainProg::MainProg(Services& services, ProgramFolders folders)
    : Form(u"MainProg"_s, u"Velbrin's Brindle 2.91 DX"_s, Escape::IsIgnored),
      services_(services),
      folders_(std::move(folders)),
      VideoBC(PictureButton(u"VideoBC"_s, u"video_bitrate"_s,
                            u"Velbrin's Brindle 2 : Video Bitrate Calc"_s)),
      AudioBC(PictureButton(u"AudioBC"_s, u"audio_bitrate"_s,
                            u"Velbrin's Brindle 2 : Audio Bitrate Calc"_s)),
      HDC(PictureButton(u"HDC"_s, u"disk_space"_s, u"Velbrin's Brindle 2 : HD Space Calc"_s)),
      AVISplitC(PictureButton(u"AVISplitC"_s, u"avi_split"_s,
                              u"Velbrin's Brindle 2 : AVI Splitting Calc"_s)),
      RAR(PictureButton(u"RAR"_s, u"resolution"_s,
                        u"Velbrin's Brindle 2 : Resolution / Aspect Ratio Calc"_s)),
      QuickCon(MakeButton(u"QuickCon"_s, u"Quick Converter"_s)),
      WinCalc(MakeButton(u"WinCalc"_s, u"Windows Calculator"_s)),
      Normalize(PictureButton(u"Normalize"_s, u"normalizer"_s, u"WAV Normalizer (rev3)"_s,
                              u"Easily normalize any 16bit PCM WAV file"_s)),
      Adremove(PictureButton(u"Adremove"_s, u"start_up_entry"_s,
                             u"Disable DivX 5 pro GAIN spyware"_s,
                             u"Disable DivX 5 pro GAIN spyware"_s)),
      HelpWin(MakeButton(u"HelpWin"_s, u"Help"_s)),
      Update(MakeButton(u"Update"_s, u"Check for Updates"_s,
                        u"If you are connected to the internet you can check for updates"_s)),
      SaveOnExit(MakeCheckBox(u"SaveOnExit"_s, u"Save On Exit"_s,
                              u"Save settings upon exiting the program"_s)),
      Defaults(MakeButton(u"Defaults"_s, u"Load Defaults"_s, u"Load the default settings"_s)),
      SaveSettings(MakeButton(u"SaveSettings"_s, u"Save Settings"_s, u"Save current settings"_s)),
      About(MakeButton(u"About"_s, u"About..."_s,
                       u"Some basic info on the program and the author"_s)),
      Webs(MakeButton(u"Webs"_s, u"Velbrin's Website"_s, u"Visit velbrin's website."_s)) {
  MakeLayout();
  WireEvents();
  connect(this, &Form::HelpAsked, this, [this] { services_.desktop.OpenHelp(this, objectName()); });
  Focus().Begin(VideoBC);
  Form_Load();
}

void MainProg::MakeLayout() {
  // clang-format off
  LayOut(this,
    Across({
      Framed(u"Calculators"_s,
        Down({
          DescribedButtons({{
            {VideoBC, u"Calculate the DivX bitrate based on movie length and target size."_s},
            {AudioBC, u"Calculate the optimal MP3/WMA bitrate after encoding the video."_s},
            {HDC, u"Calculate the space for the AVI and WAV, AC3 or MP3 files."_s},
            {AVISplitC, u"Calculate which frames to delete for spliting the AVI to 2 or 3 parts."_s},
            {RAR, u"Calculate a suitable resolution for video based on the Aspect Ratio."_s},
          }}),
          Across({QuickCon, WinCalc}, Spacing),
        })),
      Down({
        Framed(u"Tools"_s, Across({Item::Stretch(), Normalize, Adremove, Item::Stretch()}, Margin)),
        Framed(u"Extra"_s,
          Down({
            HelpWin,
            Update,
            SaveOnExit,
            Defaults,
            SaveSettings,
            About,
            Webs,
          }, Spacing)),
        Item::Stretch(),
      }),
    }));
  // clang-format on
}

void MainProg::WireEvents() {
  const Wires on(this);
  on(VideoBC).Click(&MainProg::VideoBC_Click);
  on(AudioBC).Click(&MainProg::AudioBC_Click);
  on(HDC).Click(&MainProg::HDC_Click);
  on(AVISplitC).Click(&MainProg::AVISplitC_Click);
  on(RAR).Click(&MainProg::RAR_Click);
  on(QuickCon).Click(&MainProg::QuickCon_Click);
  on(WinCalc).Click(&MainProg::WinCalc_Click);
  on(Normalize).Click(&MainProg::Normalize_Click);
  on(Adremove).Click(&MainProg::Adremove_Click);
  on(HelpWin).Click(&MainProg::HelpWin_Click);
  on(Update).Click(&MainProg::Update_Click);
  on(Defaults).Click(&MainProg::Defaults_Click);
  on(SaveSettings).Click(&MainProg::SaveSettings_Click);
  on(About).Click(&MainProg::About_Click);
  on(Webs).Click(&MainProg::Webs_Click);
}

void MainProg::Form_Load() {
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
    InitDat();
  } else if (!ReadSettings(*bytes)) {
    if (const auto kept = file.KeepUnusable()) {
      InitDat();
    } else {
      UseDefaultsUnsaved(CannotWrite(kept.error()));
    }
  }
}

bool MainProg::ReadSettings(const QByteArray& bytes) {
  auto read = ReadLines(bytes, services_.record);
  if (read) {
    services_.record = std::move(read->record);
    SaveOnExit->setChecked(read->saveOnExit);
  }
  return read.has_value();
}

// Leaves the file as it is, now and at the end, until the user asks for a save.
void MainProg::UseDefaultsUnsaved(const QString& reason) {
  ResetToBuiltIn(services_.record);
  SaveOnExit->setChecked(false);
  services_.boxes.Tell(this, reason);
}

void MainProg::InitDat() {
  ResetToBuiltIn(services_.record);
  SaveOnExit->setChecked(true);
  WriteSettings([] {});
}

void MainProg::WriteSettings(const std::function<void()>& then) {
  const SettingsFile file(services_.record.AppFolder);
  const auto written = file.Write(WriteLines(services_.record, SaveOnExit->isChecked()));
  if (written) {
    then();
  } else {
    services_.boxes.Ask(this, CannotWrite(written.error()), BoxButtons::Ok,
                        [then](BoxAnswer) { then(); });
  }
}

void MainProg::CloseUnasked() {
  services_.windows.CloseAllUnasked();
  isUnasked_ = true;
  close();
}

// The windows may be against it; they are asked before anything is saved.
void MainProg::AskToClose(const std::function<void()>& agreed) {
  if (isUnasked_) {
    Unload(agreed);
  } else {
    services_.windows.AskAllToClose([this, agreed] { Unload(agreed); });
  }
}

void MainProg::Unload(const std::function<void()>& then) {
  if (std::exchange(unloaded_, true) || !SaveOnExit->isChecked()) {
    then();
  } else {
    WriteSettings(then);
  }
}

void MainProg::VideoBC_Click() { services_.windows.Open(WindowId::BitrateCalc); }
void MainProg::AudioBC_Click() { services_.windows.Open(WindowId::AudioCalc); }
void MainProg::HDC_Click() { services_.windows.Open(WindowId::HDCalc); }
void MainProg::AVISplitC_Click() { services_.windows.Open(WindowId::AVISplit); }
void MainProg::RAR_Click() { GuardedShow(WindowId::AspectRa); }
void MainProg::QuickCon_Click() { services_.windows.Open(WindowId::QuickC); }
void MainProg::WinCalc_Click() { services_.desktop.StartCalculator(this); }
void MainProg::Normalize_Click() { GuardedShow(WindowId::WavNorm); }
void MainProg::Adremove_Click() { RemoveStartUpEntry(this, services_.boxes, services_.registry); }
void MainProg::HelpWin_Click() { services_.desktop.OpenHelp(this, FirstHelpPage.toString()); }
void MainProg::Update_Click() { services_.windows.Open(WindowId::WebUpdate); }
void MainProg::Defaults_Click() { services_.windows.Open(WindowId::DefaultW); }
void MainProg::SaveSettings_Click() {
  WriteSettings([] {});
}
void MainProg::About_Click() { services_.windows.Open(WindowId::AboutWin); }
void MainProg::Webs_Click() { services_.desktop.OpenAddress(this, services_.product.website); }

// For the two windows that may lack a shared library on the user's system.
void MainProg::GuardedShow(WindowId id) {
  try {
    services_.windows.Open(id);
  } catch (const std::exception& error) {
    const QString text =
        u"You are missing a shared library file ("_s + QuotedPart(QString::fromUtf8(error.what())) +
        u"). Please visit the program homepage\r\nat : "_s + services_.product.website +
        u" and download the FULL installation package."_s;
    services_.boxes.Ask(this, text, BoxButtons::CancelTryAgainContinue, [](BoxAnswer) {});
  }
}

}  // namespace brindle
