// What the benchmarks share. Each group registers its own; every benchmark checks its answers before it is timed.
#ifndef BENCH_Bench_H
#define BENCH_Bench_H

#include <filesystem>
#include <string>

void RegisterQueries();
void RegisterConfigurations();
void RegisterLoads();
void RegisterGrowth();

// Ends the program with the message unless what is measured answers right.
void Require(bool holds, const std::string& message);

// Makes the application use the directory, with or without decimal commas. Keeps what is loaded when nothing changes.
void UseDirectory(const std::filesystem::path& directory, bool withComma);

#endif
