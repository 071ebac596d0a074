// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/output_choice.h"

#include <QGroupBox>
#include <QString>

#include "base/input/elided_label.h"
#include "base/input/layout.h"
#include "base/input/option_group.h"
#include "base/settings/settings.h"

namespace brindle {

using namespace Qt::StringLiterals;

OutputChoice::OutputChoice(Settings& record)
    : record_(record),
      Output(u"Output"_s),
      Target(u"Target"_s, u"Browse..."_s, u"Select target file for normalized output"_s),
      TargetFile(u"TargetFile"_s, u"C:\\output.wav"_s) {
  connect(&Output, &OptionGroup::Click, this, &OutputChoice::Output_Click);
  connect(&Target, &QPushButton::clicked, this, &OutputChoice::Browse);
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
    {file, {&TargetFile, &Target}},
  });
  // clang-format on
}

void OutputChoice::Form_Load() {
  if (!record_.WavRememberFolders) {
    record_.WavTargetFile = u"C:\\Output.wav"_s;
    record_.WavSourceFile.clear();
  }
  ShowTarget(record_.WavTargetFile);
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

void OutputChoice::WriteTarget(const QString& path) {
  record_.WavTargetFile = path;
  ShowTarget(path);
}

void OutputChoice::ShowTarget(const QString& path) {
  target_ = path;
  TargetFile.Write(path);
  TargetFile.setToolTip(path);
}

void OutputChoice::EnableTarget() {
  TargetFile.setEnabled(!IsInPlace());
  Target.setEnabled(isIdle_ && !IsInPlace());
}

}  // namespace brindle
