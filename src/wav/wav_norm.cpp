// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_norm.h"

#include <functional>
#include <memory>

#include <QString>
#include <QStringList>

#include "base/input/file_dialogs.h"
#include "base/input/file_drop.h"
#include "base/input/layout.h"
#include "base/input/message_boxes.h"
#include "base/input/wiring.h"
#include "base/settings/settings.h"
#include "base/windows/file_opener.h"
#include "wav/film_sound.h"
#include "wav/normalizer_panels.h"
#include "wav/normalizer_tasks.h"
#include "wav/output_choice.h"
#include "wav/task_runner.h"
#include "wav/wav_header.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

class WavNorm : public Form, public FileOpener {
  Services& services_;
  Settings& record_;
  FileDrop drop_{this};
  NormalizerPanels panels_{record_};
  NormalizerTasks tasks_{*this, services_, panels_,
                         [this](const QString& path) { return ShowFile(path); }};

 public:
  explicit WavNorm(Services& services)
      : Form(u"WavNorm"_s, u"WAV Normalizer (rev3)"_s),
        services_(services),
        record_(services.record) {
    LayOut(this, panels_.LaidOut());
    WireEvents();
    panels_.Form_Load();
    tasks_.LookForInterrupted();
    Focus().Begin(panels_.options.First());
  }

  void WillClose() override { tasks_.Stop(); }

  void OpenFile(const QString& path) override {
    if (!tasks_.Runner().IsIdle()) {
      return;
    }
    if (IsFilm(path)) {
      services_.boxes.Tell(this, HowToGetSound(path));
    } else if (ShowFile(path)) {
      tasks_.TakeFile(path);
    }
  }

 protected:
  void AskToClose(const std::function<void()>& agreed) override {
    tasks_.Runner().AskToClose(agreed);
  }

 private:
  void WireEvents() {
    const Wires on(this);
    connect(&panels_.output, &OutputChoice::Browse, this, &WavNorm::Target_Click);
    on(panels_.tasks.btnOpen).Click(&WavNorm::btnOpen_Click);
    on(panels_.tasks.btnScan).Click(&WavNorm::btnScan_Click);
    on(panels_.tasks.btnNorm).Click(&WavNorm::btnNorm_Click);
    on(panels_.tasks.Undo).Click(&WavNorm::Undo_Click);
    on(panels_.tasks.Cancel).Click(&WavNorm::Cancel_Click);
    connect(&drop_, &FileDrop::Dropped, this, &WavNorm::OpenFile);
    connect(&tasks_.Runner(), &TaskRunner::IdleChanged, &drop_, &FileDrop::SetAccepting);
  }

  void btnScan_Click() { tasks_.Scan(); }
  void btnNorm_Click() { tasks_.Normalize(); }
  void Undo_Click() { tasks_.Undo(); }
  void Cancel_Click() { tasks_.Runner().Abort(); }

  void Target_Click() {
    if (tasks_.Runner().IsIdle()) {
      services_.dialogs.AskForTarget(
          this, Question(u"Save As"_s, {u"PCM WAV file (*.wav)"_s}, record_.WavTargetFile),
          u"wav"_s, [this](const QString& path) { panels_.output.WriteTarget(path); });
    }
  }

  void btnOpen_Click() {
    const QStringList filters{u"WAV files (*.wav)"_s, u"All Files (*.*) (*)"_s};
    if (tasks_.Runner().IsIdle()) {
      services_.dialogs.AskForExisting(this,
                                       Question(u"Select Files"_s, filters, record_.WavSourceFile),
                                       [this](const QString& path) { OpenFile(path); });
    }
  }

  [[nodiscard]] FileQuestion Question(const QString& title, const QStringList& filters,
                                      const QString& path) const {
    return {.name = u"DLG"_s,
            .title = title,
            .filters = filters,
            .start = record_.WavRememberFolders ? path : QString()};
  }

  // Whether there is something to show.
  bool ShowFile(const QString& path) {
    const auto header = ReadHeader(path);
    if (!header) {
      services_.boxes.Ask(this, MessageOf(header.error()), BoxButtons::Ok,
                          [this](BoxAnswer) { panels_.ResetLoad(); });
      return false;
    }
    panels_.fileInfo.Write(path, *header);
    panels_.ShowFileInfo();
    panels_.peaks.HidePeaks();
    record_.WavSourceFile = path;
    return true;
  }
};

}  // namespace

std::unique_ptr<Form> MakeWavNorm(Services& services) {
  return std::make_unique<WavNorm>(services);
}

}  // namespace brindle
