// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QByteArray>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFile>
#include <QMimeData>
#include <QProgressBar>
#include <QString>
#include <QUrl>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include "base/input/message_boxes.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"
#include "base/windows/services.h"
#include "shell/window_catalogue.h"
#include "tests/support/calculator_window.h"
#include "tests/support/user.h"
#include "tests/wav/wav_builder.h"

namespace brindle {

/// The samples as a pass of this gain leaves them.
inline std::vector<std::int16_t> Amplified(std::vector<std::int16_t> samples, double gain) {
  for (auto& sample : samples) {
    sample =
        static_cast<std::int16_t>(std::clamp(std::nearbyint(sample * gain), -32768.0, 32767.0));
  }
  return samples;
}

/// The normalizer on files of its own. Its clock stands still unless a test lets it go on, so that
/// a pass lets no event in; LetUpdatesCome() changes that.
class NormalizerWindow : public CalculatorWindow {
 protected:
  static constexpr const char* Refused = "This file does not appear to be a valid WAV.";
  static constexpr const char* NotRequired = "Normalization is not required";
  static constexpr const char* Overwrite = "The file already exists, overwrite it?";
  static constexpr const char* ReallyAbort =
      "Aborting normalization is not recommended. Output file will be damaged.\r\n"
      "                      Really abort normalization?";

  // What Shown() tells.
  static constexpr const char* Loaded = "info scan";
  static constexpr const char* Scanned = "info peaks scan normalize";
  static constexpr const char* AfterAPass = "info scan";

  static std::string StatisticsWithoutTime(const std::string& amplification, bool isMultiBuffer) {
    return "WAV file was successfully normalized. Stats:\r\n\r\nApplied amplification: " +
           amplification +
           "%\r\nAverage scanning throughput: 0MB/s\r\nAverage normalization throughput: "
           "0MB/s\r\n" +
           (isMultiBuffer ? "Buffer: 4096KB (multi buffer)" : "Buffer: 64KB (single buffer)");
  }

  NormalizerWindow() {
    AddAllWindows(windows, prepared, [](const auto& then) { then(); });
    record.WavAutoNormalize = false;
    record.WavRememberFolders = true;
    record.WavOverwriteSource = false;
    record.WavMultiBuffer = false;
    record.WavNormalizePercent = 100;
    record.WavTolerance = 6;
    record.WavSourceFile.clear();
    record.WavTargetFile = PathOf("out.wav");
  }

  void TearDown() override {
    EXPECT_TRUE(questions.AllAsked()) << "a box that was prepared for was not asked";
    EXPECT_TRUE(meanwhile_.empty()) << "a moment that was waited for did not come";
    EXPECT_TRUE(dialogs.paths.empty()) << "a file dialog that was prepared for was not opened";
  }

  // --- Files ---

  [[nodiscard]] QString PathOf(const char* name) const {
    return QDir::toNativeSeparators(folder.filePath(QString::fromUtf8(name)));
  }
  QString Put(const char* name, const QByteArray& bytes) const {
    QFile file(PathOf(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << file.errorString().toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
    return PathOf(name);
  }
  QString Put(const char* name, const WavParts& wav) const { return Put(name, BytesOf(wav)); }
  [[nodiscard]] QByteArray BytesOf(const char* name) const {
    QFile file(PathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(none)");
  }
  static QByteArray BytesOf(const WavParts& wav) { return QByteArray::fromStdString(wav.Bytes()); }

  /// Samples with the peaks -16384 and 8191: at 100 % their gain is 2.
  static WavParts Quiet() { return {.levels = {-16384, 8191, 3, -5, 0, 700}}; }
  static WavParts QuietAmplified() { return {.levels = Amplified(Quiet().levels, 2)}; }

  /// Samples of `blocks` times 64 KB, with the peaks of Quiet() in the first of them. A scan, and a
  /// pass of single buffers, tells of its progress behind each block but the last.
  static WavParts Long(std::size_t blocks) {
    WavParts wav;
    wav.levels.resize(blocks * 32768, 100);
    wav.levels[1] = -16384;
    wav.levels[2] = 8191;
    return wav;
  }
  static WavParts LongAmplified(std::size_t blocks) {
    auto wav = Long(blocks);
    wav.levels = Amplified(wav.levels, 2);
    return wav;
  }

  // --- What a person does ---

  void OpenNormalizer() {
    window = Open(WindowId::WavNorm);
    PercNorm = Find<TextField>(window, QStringLiteral("PercNorm"));
    Toler = Find<Slider>(window, QStringLiteral("Toler"));
  }

  /// Clicks, and runs what that began to its end. Within what happens meanwhile, it only clicks.
  void ClickOn(const char* name) {
    Click(Control(name));
    if (!isMeanwhile_) {
      AwaitEnd();
    }
  }

  /// Turns the event loop until nothing waits for it, and no box or dialog stands, any more.
  void AwaitEnd() {
    constexpr int patience = 60000;     // milliseconds
    constexpr double underABox = 0.02;  // seconds
    const QDeadlineTimer deadline(patience);
    do {
      QCoreApplication::processEvents();
      DoWhatIsDue();
      if (!clock.RunDue()) {
        clock.Advance(underABox);
      }
    } while ((clock.Waiting() > 0 || QApplication::activeModalWidget() != nullptr) &&
             !deadline.hasExpired());
    EXPECT_FALSE(deadline.hasExpired()) << "it does not end";
  }

  void OpenFile(const QString& path) {
    dialogs.paths.push_back(path);
    ClickOn("btnOpen");
  }

  /// Drags the data over the middle of a control and lets it go there, where that is allowed.
  /// Whether it is.
  bool DropOn(const char* control, const QMimeData& data) const {
    auto* widget = Control(control);
    const auto at = widget->mapTo(window.data(), widget->rect().center());
    auto* to = window->windowHandle();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(to, &enter);
    QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(to, &move);
    EXPECT_EQ(enter.isAccepted(), move.isAccepted());
    if (!move.isAccepted()) {
      QDragLeaveEvent leave;
      QApplication::sendEvent(to, &leave);
      return false;
    }
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(to, &drop);
    const bool isTaken = drop.isAccepted();
    QCoreApplication::processEvents();
    return isTaken;
  }
  bool DropOn(const char* control, const QString& path) const {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    return DropOn(control, data);
  }

  /// Opens the window with a scanned file in it.
  void OpenScanned(const WavParts& wav) {
    const auto path = Put("in.wav", wav);
    OpenNormalizer();
    OpenFile(path);
    ClickOn("btnScan");
  }

  /// Opens a file of this name, which is shown as it is and leaves the window its size.
  void ExpectTitleShown(const QString& name) {
    OpenNormalizer();
    const auto size = window->size();
    OpenFile(Put(name.toUtf8().constData(), Quiet()));
    EXPECT_EQ(Text("WavInfo1"), name.toStdString());
    QCoreApplication::processEvents();
    EXPECT_EQ(window->size(), size);
  }

  /// Lets time pass whenever a pass looks at its clock: an update is due at every chance.
  void LetUpdatesCome() { clock.AdvanceAtEveryLook(1); }

  /// Does something when a pass of this status ("Scanning...", "Normalizing...") lets events in;
  /// each call is for one more such moment.
  void During(const char* status, std::function<void()> action) {
    meanwhile_.push_back({status, std::move(action)});
  }

  /// Closes what is still open, and runs the deletions that wait for the event loop.
  static void RunDeletions() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  // --- What a person sees ---

  [[nodiscard]] QWidget* Control(const char* name) const {
    return Find(window, QString::fromLatin1(name));
  }

  /// The visible groups of controls in reading order, and the status: "info peaks normalize scan".
  [[nodiscard]] std::string Shown() const {
    struct Group {
      const char* name;
      std::vector<const char*> controls;
    };
    const std::vector<Group> groups{{"info", {"WavInfo2", "WavInfo3", "WavInfo4", "WavInfo5"}},
                                    {"peaks", {"Label1", "MinV", "MaxV"}},
                                    {"scan", {"btnScan"}},
                                    {"normalize", {"btnNorm"}},
                                    {"abort", {"Cancel"}},
                                    {"progress", {"ProgBar", "Perc", "ETA1", "ETA2"}}};
    std::string shown;
    for (const auto& group : groups) {
      const auto visible = std::count_if(group.controls.begin(), group.controls.end(),
                                         [&](auto* name) { return Control(name)->isVisible(); });
      if (visible == static_cast<std::ptrdiff_t>(group.controls.size())) {
        shown += std::string(shown.empty() ? "" : " ") + group.name;
      } else if (visible > 0) {
        shown += std::string(" HALF of ") + group.name;
      }
    }
    for (const auto* always : {"btnOpen", "WavInfo1", "PercNorm", "Target", "TargetFile"}) {
      EXPECT_TRUE(Control(always)->isVisible()) << always;
    }
    const auto status = Text("Status");
    return status.empty() ? shown : shown + " " + status;
  }

  /// The controls that can do nothing, in reading order.
  [[nodiscard]] std::string Disabled() const {
    std::string disabled;
    for (const auto* name :
         {"Mbuffer", "AutoNorm", "RemFolders", "Toler", "Output(0)", "Output(1)", "TargetFile",
          "Target", "PercNorm", "btnOpen", "btnScan", "btnNorm", "Cancel"}) {
      if (!Control(name)->isEnabled()) {
        disabled += std::string(disabled.empty() ? "" : " ") + name;
      }
    }
    return disabled;
  }

  /// The figures of the file: "a.wav 44100Hz 16bit Stereo 0:00:00".
  [[nodiscard]] std::string Info() const {
    return Text("WavInfo1") + " " + Text("WavInfo2") + " " + Text("WavInfo3") + " " +
           Text("WavInfo4") + " " + Text("WavInfo5");
  }
  [[nodiscard]] std::string Peaks() const { return Text("MinV") + " " + Text("MaxV"); }
  [[nodiscard]] int Progress() const {
    return Find<QProgressBar>(window, QStringLiteral("ProgBar"))->value();
  }
  [[nodiscard]] std::string FocusedControl() const {
    const auto* focused = window->focusWidget();
    return focused == nullptr ? "" : focused->objectName().toStdString();
  }

  /// Which boxes were asked since the last call.
  [[nodiscard]] std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const auto& asked : std::exchange(questions.asked, {})) {
      texts.push_back(asked.text);
    }
    return texts;
  }

  FakeBoxes questions;
  Services prepared{record,  windows,  clock, questions, dialogs,
                    desktop, registry, films, parts,     product};
  TextField* PercNorm = nullptr;
  Slider* Toler = nullptr;

 private:
  struct Moment {
    std::string status;
    std::function<void()> action;
  };

  void DoWhatIsDue() {
    if (!meanwhile_.empty() && window != nullptr && Text("Status") == meanwhile_.front().status) {
      const auto moment = std::move(meanwhile_.front());
      meanwhile_.pop_front();
      isMeanwhile_ = true;
      moment.action();
      isMeanwhile_ = false;
    }
  }

  std::deque<Moment> meanwhile_;
  bool isMeanwhile_ = false;
};

/// The normalizer whose scanned file goes through a pass.
class NormalizingWindow : public NormalizerWindow {
 protected:
  // Runs a pass to its statistics.
  void Normalize() {
    questions.Answer(BoxAnswer::Ok);
    ClickOn("btnNorm");
  }
};

using Texts = std::vector<std::string>;

}  // namespace brindle
