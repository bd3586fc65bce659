// SPDX-License-Identifier: MIT
#include "RatioTable.h"

#include <cmath>
#include <cstdio>
#include <map>
#include <vector>

namespace {

constexpr int s_repetitions = 5;
constexpr double s_minTime = 0.1; // seconds a repetition

struct Row
{
    std::string work;
    double goal;
    bool isLimit; // of our figure, else of the ratio
};

std::vector<Row> &rows()
{
    static std::vector<Row> s_rows;
    return s_rows;
}

std::string oursOf(const Row &row)
{
    return row.work + "/ours";
}

std::string peerOf(const Row &row)
{
    return row.work + "/peer";
}

void addRow(const Row &row, const RatioTable::Work &ours, const RatioTable::Work &peer)
{
    rows().push_back(row);
    for (const auto &[name, work] : {std::pair(oursOf(row), ours), std::pair(peerOf(row), peer)})
        benchmark::RegisterBenchmark(name.c_str(), work)
            ->Repetitions(s_repetitions)
            ->ReportAggregatesOnly(true)
            ->MinTime(s_minTime)
            ->Unit(benchmark::kNanosecond);
}

struct Figure
{
    double value = NAN; // bytes or ns
    bool isBytes = false;

    std::string text() const
    {
        static const std::vector<std::pair<double, const char *>> s_units{
            {1e6, "ms"}, {1e3, "us"}, {0, "ns"}};
        double scaled = value;
        const char *unit = "B";
        for (auto u = s_units.cbegin(); !isBytes && u != s_units.cend(); ++u) {
            if (value >= u->first) {
                scaled = u->first > 0 ? value / u->first : value;
                unit = u->second;
                break;
            }
        }
        std::array<char, 32> buffer;
        std::snprintf(buffer.data(), buffer.size(), "%.4g %s", scaled, unit);
        return buffer.data();
    }
};

/// Keeps the medians, which are all that it shows.
class MedianReporter : public benchmark::ConsoleReporter
{
public:
    MedianReporter()
        : ConsoleReporter(OO_None)
    {
    }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.aggregate_name != "median")
                continue;
            const auto bytes = run.counters.find(RatioTable::s_bytes);
            const bool isBytes = bytes != run.counters.end();
            const Figure figure{isBytes ? bytes->second.value : run.GetAdjustedCPUTime(), isBytes};
            m_medians[run.run_name.function_name] = figure;
            std::fprintf(stderr, "%-90s %s\n", run.run_name.function_name.c_str(),
                         figure.text().c_str());
        }
    }
    /// Rows of which a side was not run are left out.
    void printTable() const
    {
        std::printf("%-70s %11s %11s %7s %7s  %s\n", "work", "ours", "peer", "ratio", "goal",
                    "met");
        for (const Row &row : rows()) {
            const auto ours = m_medians.find(oursOf(row));
            const auto peer = m_medians.find(peerOf(row));
            if (ours != m_medians.end() && peer != m_medians.end())
                printRow(row, ours->second, peer->second);
        }
    }

private:
    static void printRow(const Row &row, const Figure &ours, const Figure &peer)
    {
        const double ratio = ours.value / peer.value;
        const bool isMet = (row.isLimit ? ours.value : ratio) <= row.goal;
        std::printf("%-70s %11s %11s %7.3f %7g  %s\n", row.work.c_str(), ours.text().c_str(),
                    peer.text().c_str(), ratio, row.goal, isMet ? "yes" : "no");
    }

    std::map<std::string, Figure> m_medians; // by name
};

} // namespace

void RatioTable::add(const std::string &work, double goal, const Work &ours, const Work &peer)
{
    addRow({work, goal, false}, ours, peer);
}

void RatioTable::addLimit(const std::string &work, double goal, const Work &ours, const Work &peer)
{
    addRow({work, goal, true}, ours, peer);
}

int RatioTable::run(int argc, char **argv)
{
    std::string shuffled = "--benchmark_enable_random_interleaving=true";
    std::vector<char *> arguments{argv[0], shuffled.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    arguments.push_back(nullptr);
    int count = int(arguments.size()) - 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printTable();
    return 0;
}
