// A game with the largest collection, on a desktop without a display, for everything that is timed.
#pragma once

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

/// The shipped head and 500 records, the shipped figures over and over.
std::string FullCollection();

/// Starts a game with the full collection before a benchmark, and clears up after it.
class FullGame : public benchmark::Fixture {
  public:
    void SetUp(benchmark::State&) override;
    void TearDown(benchmark::State&) override;

    std::filesystem::path Folder;
};

/// Takes a piece in hand; a step moves it by a pixel or so, to and fro.
void BeginDrag();
void DragStep();
