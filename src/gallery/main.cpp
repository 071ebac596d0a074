// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Opens every window with realistic figures and saves a picture of each:
// brindle_gallery OUTPUT_FOLDER [--dark] [--large-font] [--label LABEL] [--places]
// LABEL follows the window's name in the names of the files. With --places, each picture gets a
// WINDOW.places beside it, with a line "NAME X Y" for each control: the pixel in its middle, from
// the picture's upper left corner.

#include <array>
#include <iostream>
#include <utility>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QPalette>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include "base/windows/film_form.h"
#include "gallery/holiday_film.h"
#include "gallery/normalizer_pictures.h"
#include "gallery/recording.h"
#include "shell/built_product.h"
#include "shell/look.h"
#include "shell/main_prog.h"
#include "shell/owning_window_list.h"
#include "shell/splash.h"
#include "shell/system_registry.h"
#include "shell/window_catalogue.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// No window beeps or asks while its picture is taken; the file that is opened is the recording.
class Silence : public Desktop, public MessageBoxes, public FileDialogs {
 public:
  explicit Silence(QString recording) : recording_(std::move(recording)) {}
  void Beep() override {}
  void StartCalculator(QWidget*) override {}
  void OpenHelp(QWidget*, const QString&) override {}
  void OpenAddress(QWidget*, const QString&) override {}
  void Ask(QWidget*, const QString&, BoxButtons, const WhenAnswered& answered) override {
    answered(BoxAnswer::Ok);
  }
  void AskForExisting(QWidget*, const FileQuestion&, const WhenChosen& chosen) override {
    chosen(recording_);
  }
  void AskForTarget(QWidget*, const FileQuestion&, const QString&, const WhenChosen&) override {}
  void AskForFolder(QWidget*, const FileQuestion&, const WhenChosen&) override {}

 private:
  QString recording_;
};

// Time passes quickly, so that a short file keeps a window busy for long.
class QuickClock : public SystemClock {
 public:
  [[nodiscard]] double Now() const override { return now_ += 0.6; }

 private:
  mutable double now_ = 0;
};

QPalette DarkPalette() {
  const QColor window(0x3a, 0x3a, 0x3a);
  const QColor base(0x24, 0x24, 0x24);
  const QColor text(0xee, 0xee, 0xee);
  const QColor faint(0x80, 0x80, 0x80);
  QPalette palette(window);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, base);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::BrightText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, QColor(0x2a, 0x6f, 0xb0));
  palette.setColor(QPalette::HighlightedText, text);
  return palette;
}

// What a window's picture shows: a film of 102 and a half minutes on two discs, with its trailer.
// These are the figures of the examples in the help, which shows the pictures. There is no default,
// so that the compiler names a window that is missing here.
void SetRealisticFigures(WindowId id, Settings& record) {
  switch (id) {
    case WindowId::BitrateCalc:
      record.MovieLength = 102.5;  // the other windows show it, too
      record.CDCount = 2;
      record.AudioBitrate = 192;
      record.ExtraMaterial = 45;
      return;
    case WindowId::AudioCalc:
      record.VideoOnlySize = 1215;
      record.TargetAVISize = 1355;
      return;
    case WindowId::HDCalc:
      record.HDVideoBitrate = 1647;
      record.HDAudioType = 2;
      return;
    case WindowId::AVISplit:
      record.SplitSegmentsMode = 1;
      record.SplitAVISize = 1950;
      record.SplitSize1 = 700;
      record.SplitSize2 = 700;
      return;
    case WindowId::QuickC:
      record.QuickSizeMB = 4482;
      return;
    case WindowId::AspectRa:
      record.StandardAspect = 5;  // 2.35:1
      record.ResHorizontal = 640;
      record.ResVertical = 272;
      return;
    case WindowId::WavNorm:  // opens the recording
    case WindowId::Advanced:
    case WindowId::AboutWin:
    case WindowId::WebUpdate:
    case WindowId::DefaultW:
      return;
  }
}

class Gallery {
 public:
  Gallery(const QDir& folder, QString label, bool hasPlaces)
      : folder_(folder), label_(std::move(label)), hasPlaces_(hasPlaces) {}

  bool Take(QWidget& window, const QString& state = {}) const {
    const auto path = folder_.filePath(window.objectName() + state + label_);
    const bool saved =
        window.grab().save(path + u".png"_s) && (!hasPlaces_ || WritePlaces(window, path));
    if (!saved) {
      std::cerr << "cannot write " << path.toStdString() << '\n';
    }
    return saved;
  }

 private:
  static bool WritePlaces(const QWidget& window, const QString& path) {
    QFile file(path + u".places"_s);
    if (!file.open(QIODevice::WriteOnly)) {
      return false;
    }
    QTextStream lines(&file);
    for (const auto* control : window.findChildren<QWidget*>()) {
      if (control->isVisible() && !control->objectName().isEmpty()) {
        const auto middle =
            control->mapTo(&window, control->rect().center()) * window.devicePixelRatio();
        lines << control->objectName() << ' ' << middle.x() << ' ' << middle.y() << '\n';
      }
    }
    lines.flush();
    return lines.status() == QTextStream::Ok;
  }

  QDir folder_;
  QString label_;
  bool hasPlaces_;
};

// The calculators once more, filled from a film.
bool TakeFilled(const Gallery& gallery, OwningWindowList& windows) {
  bool isSaved = true;
  for (const auto& entry : AllWindows()) {
    if (auto* window = dynamic_cast<FilmForm*>(&windows.Load(entry.id))) {
      window->OpenFile(u"/films/holiday.avi"_s);
      isSaved &= gallery.Take(*window, u"Film"_s);
    }
  }
  return isSaved;
}

int TakeAll(const Gallery& gallery) {
  const QTemporaryDir folder;
  Settings record;
  QuickClock clock;
  const auto recording = folder.filePath(u"Concert in Lisbon.wav"_s);
  Silence silence(recording);
  SystemRegistry registry;
  HolidayFilms films;
  NoParts parts;
  OwningWindowList windows(silence);
  const Product product = BuiltProduct();
  Services services{record,  windows,  clock, silence, silence,
                    silence, registry, films, parts,   product};
  AddAllWindows(windows, services, [](const auto& then) { then(); });

  Splash splash(services);
  splash.show();
  const auto mainProg = MakeMainProg(services, {.program = folder.path(), .config = folder.path()});
  mainProg->show();
  for (const auto& window : AllWindows()) {
    SetRealisticFigures(window.id, record);
  }
  for (const auto& window : AllWindows()) {
    windows.Open(window.id);
  }
  if (!WriteRecording(recording)) {
    std::cerr << "cannot write " << recording.toStdString() << '\n';
    return 1;
  }
  bool isSaved = true;
  auto& normalizer = windows.Load(WindowId::WavNorm);
  NormalizerTour tour(normalizer,
                      [&](const QString& state) { isSaved &= gallery.Take(normalizer, state); });
  QObject::connect(&tour, &NormalizerTour::Ended, &tour,
                   [&](bool isWhole) { QApplication::exit(isWhole && isSaved ? 0 : 1); });
  // The windows have been laid out by then.
  QTimer::singleShot(0, &tour, [&] {
    for (auto* window : QApplication::topLevelWidgets()) {
      if (window->isVisible()) {
        isSaved &= gallery.Take(*window);
      }
    }
    isSaved &= TakeFilled(gallery, windows);
    tour.Start();
  });
  return QApplication::exec();
}

// The platform without a screen says at each window what it cannot do with it; nobody needs it to.
void TellButNotOfThePlatform(QtMsgType, const QMessageLogContext&, const QString& message) {
  if (!message.startsWith(u"This plugin does not support "_s)) {
    std::cerr << message.toStdString() << '\n';
  }
}

int Run() {
  const QCommandLineOption dark(u"dark"_s);
  const QCommandLineOption largeFont(u"large-font"_s);
  const QCommandLineOption label(u"label"_s, {}, u"name"_s, {});
  QCommandLineParser arguments;
  const QCommandLineOption places(u"places"_s);
  arguments.addOptions({dark, largeFont, label, places});
  arguments.addPositionalArgument(u"folder"_s, u"Where the pictures go"_s);
  arguments.process(*QCoreApplication::instance());
  if (arguments.positionalArguments().size() != 1) {
    arguments.showHelp(2);
  }
  if (arguments.isSet(dark)) {
    QApplication::setPalette(DarkPalette());
  }
  if (arguments.isSet(largeFont)) {
    QFont font = QApplication::font();
    font.setPointSize(14);
    QApplication::setFont(font);
  }
  FollowPalette();
  const QDir folder(arguments.positionalArguments().constFirst());
  if (!folder.mkpath(u"."_s)) {
    std::cerr << "cannot create " << folder.path().toStdString() << '\n';
    return 1;
  }
  return TakeAll({folder, arguments.value(label), arguments.isSet(places)});
}

}  // namespace
}  // namespace brindle

int main(int argc, char** argv) {
  qInstallMessageHandler(brindle::TellButNotOfThePlatform);
  const QApplication application(argc, argv);
  brindle::SetUpApplication();
  return brindle::Run();
}
