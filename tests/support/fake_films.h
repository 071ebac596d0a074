// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QString>

#include "base/windows/film_source.h"
#include "base/windows/part_writer.h"

namespace brindle {

/// Reads or writes films as the test says: it remembers what was begun, and the test calls what the
/// window gave it, as long as the window has not stopped it.
template <class Service, class Order>
class FakeFilmService : public Service {
 public:
  using Calls = typename Service::Calls;

  struct Begun {
    Order order;
    Calls calls;
    bool isStopped = false;
  };

  std::unique_ptr<FilmJob> Begin(const Order& order, const Calls& calls) override {
    begun.push_back(std::make_shared<Begun>(Begun{order, calls}));
    return std::make_unique<Job>(begun.back());
  }

  /// What was begun last.
  [[nodiscard]] Begun& Last() { return *begun.back(); }

  /// Whether something was begun that has neither ended nor been stopped.
  [[nodiscard]] bool IsBusy() const { return !begun.empty() && !begun.back()->isStopped; }

  std::vector<std::shared_ptr<Begun>> begun;

 private:
  class Job : public FilmJob {
   public:
    explicit Job(std::shared_ptr<Begun> job) : begun_(std::move(job)) {}
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    Job(Job&&) = delete;
    Job& operator=(Job&&) = delete;
    ~Job() override { begun_->isStopped = true; }

   private:
    std::shared_ptr<Begun> begun_;
  };
};

using FakeFilmSource = FakeFilmService<FilmSource, QString>;
using FakePartWriter = FakeFilmService<PartWriter, PartOrder>;

}  // namespace brindle
