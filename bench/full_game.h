// The game with the largest collection on the scripted desktop; every benchmark runs it.
#pragma once

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>

/// The shipped head and 500 records: the shipped figures, repeated.
std::string FullCollection();

/// Starts the game before a benchmark and removes its folder after it.
class FullGame : public benchmark::Fixture {
  public:
    void SetUp(benchmark::State&) override;
    void TearDown(benchmark::State&) override;

    std::filesystem::path Folder;
};

/// Takes a piece in hand; each step moves it by about a pixel, back and forth.
void BeginDrag();
void DragStep();
