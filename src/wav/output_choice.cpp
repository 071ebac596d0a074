// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/output_choice.h"

#include <QGroupBox>
#include <QString>

#include "app/input/elided_label.h"
#include "app/input/file_dialogs.h"
#include "app/input/layout.h"
#include "app/input/option_group.h"

namespace brindle {

using namespace Qt::StringLiterals;

OutputChoice::OutputChoice(Form& window, Services& services)
    : window_(window),
      services_(services),
      record_(services.record),
      Output(u"Output"_s),
      Target(
          MakeButton(u"Target"_s, u"Browse..."_s, u"Select target file for normalized output"_s)),
      TargetFile(new ElidedLabel(u"TargetFile"_s, u"C:\\output.wav"_s)) {
  connect(&Output, &OptionGroup::Click, this, &OutputChoice::Output_Click);
  connect(Target, &QPushButton::clicked, this, &OutputChoice::Target_Click);
}

QGroupBox* OutputChoice::InFrame() {
  auto* source = Output.Add(Source, u"Overwrite existing file (not sug. for 2HDD sys)"_s,
                            u"Directly normalize existing WAV file"_s);
  auto* file = Output.Add(File, u"Target File:"_s,
                          u"If you have 2 hard disks set the target to a different HD than the "
                          "source to maximize performance."_s);
  // clang-format off
  return MakeFrame(u"Save normalized WAV output to:"_s, {
    {source, {}},
    {file, {TargetFile, Target}},
  });
  // clang-format on
}

void OutputChoice::Form_Load() {
  if (!record_.WavRememberFolders) {
    record_.WavTargetFile = u"C:\\Output.wav"_s;
    record_.WavSourceFile.clear();
  }
  ShowTarget();
  Output.Select(record_.WavOverwriteSource ? Source : File);
}

void OutputChoice::SetIdle(bool isIdle) {
  isIdle_ = isIdle;
  EnableTarget();
}

void OutputChoice::Output_Click(int index) {
  record_.WavOverwriteSource = index == Source;
  EnableTarget();
}

void OutputChoice::Target_Click() {
  const Form::Occupied inside(window_);
  const auto path = services_.dialogs.AskForTarget(
      &window_,
      {.name = u"DLG"_s,
       .title = u"Save As"_s,
       .filters = {u"PCM WAV file (*.wav)"_s},
       .start = record_.WavRememberFolders ? record_.WavTargetFile : QString()},
      u"wav"_s);
  if (!path.isEmpty()) {
    record_.WavTargetFile = path;
    ShowTarget();
  }
}

void OutputChoice::ShowTarget() {
  TargetFile->Show(record_.WavTargetFile);
  TargetFile->setToolTip(record_.WavTargetFile);
}

void OutputChoice::EnableTarget() {
  TargetFile->setEnabled(!record_.WavOverwriteSource);
  Target->setEnabled(isIdle_ && !record_.WavOverwriteSource);
}

}  // namespace brindle
