// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/av_file.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <utility>

extern "C" {
#include <libavutil/dict.h>
#include <libavutil/error.h>
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

namespace brindle {
namespace {

constexpr int BufferLength = 262'144;

// The formats of films and their sound; the library knows hundreds of others.
constexpr const char* KnownFormats =
    "avi,matroska,webm,mov,mp4,m4a,3gp,3g2,mj2,mpegts,mpeg,mpegvideo,asf,flv,ogg,wav,mp3,aac,ac3,"
    "flac,h264,hevc,m4v";

// Nothing but the film itself is opened, whatever the film says.
int RefuseToOpen(AVFormatContext* /*context*/, AVIOContext** /*io*/, const char* /*address*/,
                 int /*flags*/, AVDictionary** /*options*/) {
  return AVERROR(EPERM);
}

std::uint8_t* NewBuffer() {
  auto* buffer = static_cast<std::uint8_t*>(av_malloc(BufferLength));
  if (buffer == nullptr) {
    throw std::bad_alloc();
  }
  return buffer;
}

void FreeIo(AVIOContext** io) {
  if (*io != nullptr) {
    av_freep(static_cast<void*>(&(*io)->buffer));
    avio_context_free(io);
  }
}

// Where a seek leads; below 0 if it is not one.
std::int64_t TargetOf(std::int64_t offset, int whence, std::int64_t position, std::int64_t length) {
  switch (whence & ~AVSEEK_FORCE) {
    case SEEK_SET:
      return offset;
    case SEEK_CUR:
      return position + offset;
    case SEEK_END:
      return length + offset;
    default:
      return -1;
  }
}

}  // namespace

QString ReasonOf(int error) {
  std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
  av_strerror(error, text.data(), text.size());
  return QString::fromUtf8(text.data());
}

AvInput::AvInput(DiskFile& file, std::int64_t length, std::function<bool(std::int64_t)> goesOn)
    : file_(file),
      length_(length),
      goesOn_(std::move(goesOn)),
      io_(avio_alloc_context(NewBuffer(), BufferLength, 0, this, ReadSome, nullptr, SeekTo)),
      context_(avformat_alloc_context()) {
  // People are told what is wrong in one sentence, not by the library.
  av_log_set_level(AV_LOG_QUIET);
  if (io_ == nullptr || context_ == nullptr) {
    throw std::bad_alloc();
  }
  context_->pb = io_;
  context_->io_open = RefuseToOpen;
  context_->flags |= AVFMT_FLAG_CUSTOM_IO;
  context_->format_whitelist = av_strdup(KnownFormats);
  context_->max_streams = 100;
}

AvInput::~AvInput() {
  avformat_close_input(&context_);
  FreeIo(&io_);
}

bool AvInput::IsMovFamily() const {
  return std::string_view(context_->iformat->name).starts_with("mov,");
}

tl::expected<void, QString> AvInput::Open() {
  // On a failure the library frees the context and sets it to nothing.
  if (const int error = avformat_open_input(&context_, nullptr, nullptr, nullptr); error < 0) {
    return tl::unexpected(error == AVERROR_INVALIDDATA
                              ? QStringLiteral("it is not a film, or it is damaged")
                              : ReasonOf(error));
  }
  constexpr std::int64_t probeBytes = 5'000'000;
  context_->probesize = probeBytes;
  if (IsMovFamily()) {
    context_->flags |= AVFMT_FLAG_NOPARSE | AVFMT_FLAG_NOFILLIN;
  }
  // Of what it cannot make sense of, the library would read everything.
  constexpr std::int64_t mostToLookAt = 64'000'000;
  leftToLookAt_ = mostToLookAt;
  isOpening_ = true;
  const int error = avformat_find_stream_info(context_, nullptr);
  isOpening_ = false;
  if (leftToLookAt_ <= 0) {
    io_->eof_reached = 0;
  }
  if (error < 0) {
    return tl::unexpected(ReasonOf(error));
  }
  return {};
}

int AvInput::ReadSome(void* self, std::uint8_t* buffer, int size) {
  auto& input = *static_cast<AvInput*>(self);
  if (input.isStopped_ || !input.goesOn_(input.position_)) {
    input.isStopped_ = true;
    return AVERROR_EXIT;
  }
  const auto read = input.file_.Read(
      input.position_,
      std::as_writable_bytes(std::span(buffer, static_cast<std::size_t>(std::max(size, 0)))));
  if (!read) {
    input.error_ = read.error();
    return AVERROR(EIO);
  }
  input.position_ += static_cast<std::int64_t>(*read);
  input.leftToLookAt_ -= static_cast<std::int64_t>(*read);
  return *read == 0 ? AVERROR_EOF : static_cast<int>(*read);
}

std::int64_t AvInput::SeekTo(void* self, std::int64_t offset, int whence) {
  auto& input = *static_cast<AvInput*>(self);
  if ((whence & AVSEEK_SIZE) != 0) {
    return input.length_;
  }
  const auto target = TargetOf(offset, whence, input.position_, input.length_);
  if (target < 0) {
    return AVERROR(EINVAL);
  }
  input.position_ = target;
  return target;
}

AvOutput::AvOutput(PartFile& file, const std::string& format)
    : file_(file),
      io_(avio_alloc_context(NewBuffer(), BufferLength, 1, this, nullptr, WriteSome, SeekTo)) {
  if (io_ == nullptr ||
      avformat_alloc_output_context2(&context_, nullptr, format.c_str(), nullptr) < 0) {
    throw std::bad_alloc();
  }
  context_->pb = io_;
  context_->flags |= AVFMT_FLAG_CUSTOM_IO;
  context_->io_open = RefuseToOpen;
}

AvOutput::~AvOutput() {
  avformat_free_context(context_);
  FreeIo(&io_);
}

int AvOutput::WriteSome(void* self, std::uint8_t* buffer, int size) {
  auto& file = static_cast<AvOutput*>(self)->file_;
  file.Write(std::as_bytes(std::span(buffer, static_cast<std::size_t>(std::max(size, 0)))));
  return file.State() ? size : AVERROR(EIO);
}

std::int64_t AvOutput::SeekTo(void* self, std::int64_t offset, int whence) {
  auto& file = static_cast<AvOutput*>(self)->file_;
  if ((whence & AVSEEK_SIZE) != 0) {
    return file.Length();
  }
  const auto target = TargetOf(offset, whence, file.Position(), file.Length());
  if (target < 0) {
    return AVERROR(EINVAL);
  }
  file.Seek(target);
  return target;
}

}  // namespace brindle
