// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "base/files/system_files.h"
#include "cli/commands.h"
#include "cli/film_files.h"
#include "cli/inputs.h"
#include "cli/reading.h"
#include "cli/recordings.h"
#include "media/film.h"
#include "media/part_sizes.h"

namespace brindle {
namespace {

using Cuts = std::vector<std::size_t>;
using PlannedCuts = tl::expected<Cuts, Refusal>;

constexpr double SecondsOfAMinute = 60;

Reading<std::int64_t> ReadFrame(std::string_view text) {
  const auto number = ReadNumber(text);
  constexpr double most = 1e9;
  if (!number || *number != std::floor(*number) || *number > most) {
    return tl::unexpected(Quoted(text) + " is not the number of a frame");
  }
  return static_cast<std::int64_t>(*number);
}

// What becomes of a film: its cuts, and the files.
struct Plan {
  Cuts cuts;
  QStringList targets;
  std::vector<std::int64_t> bytes;  // expected, then written
};

class Parts : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "parts",
            .summary = "cut a film into parts that fit",
            .description =
                "Writes the parts of a film, each within its size. A part begins with the last "
                "key frame up to which the part before it fits; nothing is encoded again. The "
                "parts of AVI, Matroska and MP4 files are such files, those of others Matroska "
                "files. Without --size the parts are about equal; without --parts there are as "
                "many as it takes.",
            .example = "brindle parts holiday.avi --size 700MB --parts 2"};
  }

  void AddOptions(Options& options) override {
    film_.AddTo(options);
    options.AddList({.names = "--size",
                     .value = "SIZE",
                     .help = "What each part holds at most; given again, what the next one does"},
                    sizes_, ReadMegaBytes);
    options.Add({.names = "--parts", .value = "NUMBER", .help = "How many parts there are to be"},
                count_, ReadCount);
    options.AddList({.names = "--cut",
                     .value = "FRAME",
                     .help = "Begin a part with this frame, a key frame; may be given again"},
                    frames_, ReadFrame);
    options.Add({.names = "-o,--output-folder",
                 .value = "PATH",
                 .help = "Where the parts go",
                 .byDefault = "the folder of the film",
                 .takesFile = true},
                folder_, ReadPath);
    options.AddFlag({.names = "--force", .value = {}, .help = "Replace parts that are there"},
                    force_);
    options.AddFlag({.names = "--dry-run", .value = {}, .help = "Tell the parts, write nothing"},
                    dryRun_);
    options.Exclude("--cut", "--size");
    options.Exclude("--cut", "--parts");
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    if (!film_.IsGiven()) {
      return report.RefuseUsage("FILE is missing");
    }
    if (sizes_.empty() && !count_ && frames_.empty()) {
      return report.RefuseUsage("--size, --parts or --cut says how to cut the film");
    }
    const auto read = film_.Read(given, report);
    if (!read) {
      return Refuse(read.error(), report);
    }
    const auto& film = (*read)->Facts();
    auto plan = CutsOf(film).and_then([&](Cuts cuts) { return PlanOf(film, std::move(cuts)); });
    if (!plan) {
      return Refuse(plan.error(), report);
    }
    if (!dryRun_) {
      if (const auto written = Write(**read, *plan, report); !written) {
        return Refuse(written.error(), report);
      }
    }
    return report.Give(AnswerOf(film, *plan));
  }

 private:
  [[nodiscard]] ExitCode Refuse(const Refusal& refusal, Reporter& report) const {
    report.Tell(refusal.message);
    if (report.IsJson()) {
      Answer answer;
      answer.json.Add("file", film_.Name());
      answer.json.Add("error", refusal.message);
      static_cast<void>(report.Give(answer));
    }
    return refusal.code;
  }

  [[nodiscard]] static tl::unexpected<Refusal> NoAnswer(std::string why) {
    return tl::unexpected(Refusal{ExitCode::NoAnswer, std::move(why)});
  }

  [[nodiscard]] PlannedCuts CutsOf(const Film& film) const {
    if (film.keyFrames.empty() || film.parts.container.empty()) {
      return NoAnswer(film_.Name() + " has no key frame to cut at");
    }
    if (!frames_.empty()) {
      return CutsAtFrames(film);
    }
    if (sizes_.empty()) {
      return EqualCuts(film, static_cast<std::size_t>(*count_));
    }
    return CutsOfSizes(film);
  }

  [[nodiscard]] PlannedCuts CutsAtFrames(const Film& film) const {
    Cuts cuts;
    for (const auto frame : frames_) {
      const auto found =
          std::find_if(film.keyFrames.begin(), film.keyFrames.end(),
                       [frame](const FilmKeyFrame& key) { return key.frame == frame; });
      if (found == film.keyFrames.end()) {
        return NoAnswer("frame " + std::to_string(frame) + " is not a key frame");
      }
      const auto cut = static_cast<std::size_t>(found - film.keyFrames.begin());
      if (cut == 0 || (!cuts.empty() && cut <= cuts.back())) {
        return NoAnswer("no part would end before frame " + std::to_string(frame));
      }
      cuts.push_back(cut);
    }
    return cuts;
  }

  // The smallest size with which so many parts are enough.
  [[nodiscard]] static PlannedCuts EqualCuts(const Film& film, std::size_t count) {
    if (count > film.keyFrames.size()) {
      return NoAnswer("the film has only " + std::to_string(film.keyFrames.size()) +
                      " key frames to cut at");
    }
    std::int64_t least = 0;
    auto most = PartBytes(film, 0, film.keyFrames.size());
    const auto cutsFor = [&](std::int64_t size) {
      return CutsFor(film, std::vector<std::int64_t>(film.keyFrames.size(), size));
    };
    while (most - least > 1) {
      const auto middle = least + (most - least) / 2;
      const auto cuts = cutsFor(middle);
      (cuts && cuts->size() < count ? most : least) = middle;
    }
    return *cutsFor(most);
  }

  [[nodiscard]] PlannedCuts CutsOfSizes(const Film& film) const {
    constexpr double megaByte = 1'048'576;
    constexpr double mostBytes = 1e15;
    std::vector<std::int64_t> sizes;
    for (const auto size : sizes_) {
      sizes.push_back(static_cast<std::int64_t>(std::min(size * megaByte, mostBytes)));
    }
    // The last size is that of all further parts, of which there are no more than key frames.
    sizes.resize(std::max(sizes.size(), film.keyFrames.size()), sizes.back());
    auto cuts = CutsFor(film, sizes);
    if (!cuts) {
      return NoAnswer("a part of this size cannot hold what lies between two key frames");
    }
    if (count_ && cuts->size() >= static_cast<std::size_t>(*count_)) {
      return NoAnswer(std::to_string(*count_) + (*count_ == 1 ? " part" : " parts") +
                      " of this size cannot hold the film; it takes " +
                      std::to_string(cuts->size() + 1));
    }
    return *cuts;
  }

  [[nodiscard]] tl::expected<Plan, Refusal> PlanOf(const Film& film, Cuts cuts) const {
    Plan plan;
    const QFileInfo source(film_.Path());
    const QDir folder(folder_ ? QFileInfo(QString::fromStdString(*folder_)).absoluteFilePath()
                              : source.absolutePath());
    if (!folder.exists()) {
      return tl::unexpected(Refusal{ExitCode::Failed, "there is no folder " + *folder_});
    }
    const auto ending = film.parts.container == "matroska"
                            ? QStringLiteral("mkv")
                            : QString::fromStdString(film.parts.container);
    cuts.push_back(film.keyFrames.size());
    std::size_t from = 0;
    for (const auto to : cuts) {
      plan.bytes.push_back(PartBytes(film, from, to));
      plan.targets.push_back(folder.filePath(QStringLiteral("%1.part%2.%3")
                                                 .arg(source.completeBaseName())
                                                 .arg(plan.bytes.size())
                                                 .arg(ending)));
      from = to;
    }
    cuts.pop_back();
    plan.cuts = std::move(cuts);
    return plan;
  }

  [[nodiscard]] tl::expected<void, Refusal> Check(const Plan& plan) const {
    const auto failed = [](std::string why) {
      return tl::unexpected(Refusal{ExitCode::Failed, std::move(why)});
    };
    std::int64_t needed = 0;
    for (std::size_t i = 0; i < plan.bytes.size(); ++i) {
      needed += plan.bytes[i];
      const auto& target = plan.targets[static_cast<qsizetype>(i)];
      const auto name = QDir::toNativeSeparators(target).toStdString();
      if (LeadToSameFile(target, film_.Path())) {
        return failed(name + " is the film itself");
      }
      if (!force_ && QFileInfo::exists(target)) {
        return failed(name + " exists already; --force replaces it");
      }
    }
    const auto folder = QFileInfo(plan.targets.front()).absolutePath();
    const auto free = TheSystemsDisk().FreeBytes(folder);
    if (free && *free < needed) {
      return failed("the parts need " + MegaBytesOf(static_cast<double>(needed)) + ", but only " +
                    MegaBytesOf(static_cast<double>(*free)) + " are free in " +
                    QDir::toNativeSeparators(folder).toStdString());
    }
    return {};
  }

  [[nodiscard]] tl::expected<void, Refusal> Write(FilmFile& film, Plan& plan, Reporter& report) {
    if (auto check = Check(plan); !check) {
      return check;
    }
    auto& console = report.Terminal();
    auto pass = film.WriteParts(plan.cuts, plan.targets, force_);
    while (true) {
      const auto state = pass->Advance();
      if (const auto* done = std::get_if<PartsCompleted>(&state)) {
        console.ShowProgress({});
        plan.bytes = done->bytes;
        return {};
      }
      if (const auto* failure = std::get_if<PartsFailed>(&state)) {
        console.ShowProgress({});
        return tl::unexpected(
            Refusal{ExitCode::Failed, FilmMessage(film_, failure->error, failure->isWriting)});
      }
      const auto* progress = std::get_if<PartsGoOn>(&state);
      if (progress == nullptr || !film_.Show(progress->percent, console)) {
        console.ShowProgress({});
        return tl::unexpected(Refusal{ExitCode::Interrupted,
                                      "interrupted while writing the parts of " + film_.Name()});
      }
    }
  }

  [[nodiscard]] Answer AnswerOf(const Film& film, const Plan& plan) const {
    Answer answer;
    std::vector<JsonObject> parts;
    std::int64_t start = 0;
    const auto rate = film.video->frameRate.Value();
    for (std::size_t i = 0; i < plan.bytes.size(); ++i) {
      const auto end =
          i < plan.cuts.size() ? film.keyFrames[plan.cuts[i]].frame : film.video->frames;
      const auto target = QDir::toNativeSeparators(plan.targets[static_cast<qsizetype>(i)]);
      const auto seconds = static_cast<double>(end - start) / rate;
      answer.lines.push_back(target.toStdString() + ": " +
                             MegaBytesOf(static_cast<double>(plan.bytes[i])) + ", " +
                             ClockText(seconds / SecondsOfAMinute) + ", frames " +
                             std::to_string(start) + " to " + std::to_string(end - 1));
      JsonObject part;
      part.Add("file", target.toStdString());
      part.Add("size_b", static_cast<double>(plan.bytes[i]));
      part.Add("duration_seconds", seconds);
      part.Add("start_frame", static_cast<double>(start));
      part.Add("end_frame", static_cast<double>(end - 1));
      parts.push_back(part);
      start = end;
    }
    answer.json.Add("file", film_.Name());
    answer.json.Add("written", !dryRun_);
    answer.json.Add("parts", parts);
    return answer;
  }

  FilmArgument film_;
  std::vector<double> sizes_;  // MB
  std::optional<std::int16_t> count_;
  std::vector<std::int64_t> frames_;
  std::optional<std::string> folder_;
  bool force_ = false;
  bool dryRun_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeParts() { return std::make_unique<Parts>(); }

}  // namespace brindle
