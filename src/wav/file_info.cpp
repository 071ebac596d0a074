// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/file_info.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QString>
#include <QWidget>

#include "base/input/elided_label.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "wav/wav_header.h"
#include "wav/wav_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

FileInfo::FileInfo()
    : WavInfo1(u"WavInfo1"_s, u"No File Loaded"_s),
      WavInfo2(u"WavInfo2"_s, {}, {u"8888888888Hz"_s, u"Samplerate"_s}),
      WavInfo3(u"WavInfo3"_s, {}, {u"-88888bit"_s, u"Sample"_s}),
      WavInfo4(u"WavInfo4"_s, {}, {u"88888Ch"_s, u"Stereo"_s}),
      WavInfo5(u"WavInfo5"_s, u"Duration"_s) {
  WavInfo2.Write(u"Samplerate"_s);
  WavInfo3.Write(u"Sample"_s);
  WavInfo4.Write(u"Mode"_s);
  KeepRoom({&WavInfo2, &WavInfo3, &WavInfo4, &WavInfo5});
}

QGroupBox* FileInfo::InFrame(QWidget* picture) {
  const auto caption = u"File Info"_s;
  auto* frame = MakeFrame(
      caption,
      Down({&WavInfo1, Across({&WavInfo2, &WavInfo3, &WavInfo4, &WavInfo5}), picture}, Spacing));
  frame->setToolTip(u"Info on loaded file"_s);
  NameByLabel(caption, {&WavInfo1, &WavInfo2, &WavInfo3, &WavInfo4, &WavInfo5});
  return frame;
}

void FileInfo::Write(const QString& path, const WavHeader& header) {
  const auto title = QFileInfo(path).fileName();
  WavInfo1.Write(title.isEmpty() ? path : title);
  if (header.sampleRate) {
    WavInfo2.Write(QString::number(*header.sampleRate) + u"Hz"_s);
  }
  WavInfo3.Write(QString::number(header.bitsPerSample) + u"bit"_s);
  if (const auto channels = ChannelsText(header.channels)) {
    WavInfo4.Write(ToQString(*channels));
  }
  if (auto seconds = header.Duration()) {
    WavInfo5.Write(ToQString(FormatDuration(*seconds)));
  }
}

void FileInfo::SetVisible(bool visible) {
  WavInfo2.setVisible(visible);
  WavInfo3.setVisible(visible);
  WavInfo4.setVisible(visible);
  WavInfo5.setVisible(visible);
}

}  // namespace brindle
