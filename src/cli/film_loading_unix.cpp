// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <dlfcn.h>
#include <memory>
#include <string>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include "cli/film_loading.h"
#include "cli/film_module.h"

namespace brindle {
namespace {

// Beside the program, as it was built, or where it is installed.
QString ModulePath() {
  const auto folder = QCoreApplication::applicationDirPath();
  const auto name = QStringLiteral("/brindle-films.so");
  const auto built = folder + name;
  return QFileInfo::exists(built) ? built
                                  : folder + QStringLiteral("/" BRINDLE_FILMS_FOLDER) + name;
}

}  // namespace

tl::expected<std::shared_ptr<FilmReader>, std::string> LoadFilmReader() {
  void* module = dlopen(QFile::encodeName(ModulePath()).constData(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) {
    const char* reason = dlerror();
    return tl::unexpected("what reads films cannot be loaded (is brindle-films installed?): " +
                          std::string(reason == nullptr ? "no reason given" : reason));
  }
  // The system gives every symbol as the same kind of pointer.
  const auto make = reinterpret_cast<NewFilmReader>(  // NOLINT(*-reinterpret-cast)
      dlsym(module, NewFilmReaderName));
  if (make == nullptr) {
    return tl::unexpected(std::string("what reads films is of another version"));
  }
  return std::shared_ptr<FilmReader>(make());
}

}  // namespace brindle
