// SPDX-License-Identifier: MIT
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

/// The table of speeds: one row for each piece of work, done by us and by a peer.
///
/// Both sides are measured several times, in an order that is shuffled over the whole run, so that
/// whatever else the machine does meets both. The medians of the processor times are compared.
namespace RatioTable {

using Work = std::function<void(benchmark::State &)>;

/// The counter that a work sets to be measured in bytes instead of time.
constexpr const char *s_bytes = "bytes";

/// A row whose ratio of ours to the peer has to be at most @p goal.
void add(const std::string &work, double goal, const Work &ours, const Work &peer);
/// A row whose own figure has to be at most @p goal, whatever the peer's.
void addLimit(const std::string &work, double goal, const Work &ours, const Work &peer);

/// Runs what the command line asks for, and prints the table. The exit code of the program.
int run(int argc, char **argv);

} // namespace RatioTable

// What each file adds.
void addBuildRows();
void addWriteRows();
void addLookupRows();
void addViewRows();
void addCopyRows();
