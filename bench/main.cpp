// Runs the benchmarks and prints one table of targets behind them.
#include "bench/bench.h"

#include "chipmodel/model.h"
#include "ldsdk/ldsdk.h"
#include "platform/bus.h"
#include "platform/host/host_os.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

namespace ldsdk::bench {

namespace {

std::vector<Target> &targets()
{
    static std::vector<Target> list;
    return list;
}

// Keeps every run beside what the console shows.
class Collector : public benchmark::ConsoleReporter {
  public:
    struct Result {
        double ns = 0;
        std::map<std::string, double> counters;
    };

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred ||
                (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median")) {
                continue;
            }
            Result &result = results_[run.run_name.function_name +
                                      (run.run_name.args.empty() ? "" : "/" + run.run_name.args)];
            // Processor time: another program's share of the machine is not ours. What runs in a
            // process of its own measures itself.
            result.ns = run.run_name.time_type == "manual_time" ? run.GetAdjustedRealTime()
                                                                : run.GetAdjustedCPUTime();
            for (const auto &[name, counter] : run.counters) {
                result.counters[name] = counter.value;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::map<std::string, Result> &results() const
    {
        return results_;
    }

  private:
    std::map<std::string, Result> results_;
};

double measured(const Target &target, const std::map<std::string, Collector::Result> &results,
                bool &known)
{
    const auto of = results.find(target.of);
    const auto against = results.find(target.against);
    known = of != results.end();
    if (!known) {
        return 0;
    }
    switch (target.kind) {
        case Target::Kind::kRateAtLeast:
            return 1e9 / of->second.ns;
        case Target::Kind::kCounterAtMost: {
            const auto counter = of->second.counters.find(target.against);
            known = counter != of->second.counters.end();
            return known ? counter->second : 0;
        }
        case Target::Kind::kRatioAtMost:
            known = against != results.end();
            return known ? of->second.ns / against->second.ns : 0;
        case Target::Kind::kSpeedAtLeast:
            known = against != results.end();
            return known ? against->second.ns / of->second.ns : 0;
    }
    return 0;
}

// "12.5", or "-" for a counter that a benchmark has not.
std::string counter_text(const Collector::Result &result, const char *name)
{
    const auto counter = result.counters.find(name);
    if (counter == result.counters.end()) {
        return "-";
    }
    char text[32];
    std::snprintf(text, sizeof(text), "%.4g", counter->second);
    return text;
}

void print_targets(const Collector &collector)
{
    std::printf("\n%-56s %12s %8s %12s %12s  %s\n", "operation", "ns", "frames", "measured",
                "target", "");
    for (const Target &target : targets()) {
        bool known = false;
        const double value = measured(target, collector.results(), known);
        if (!known) {
            continue;
        }
        const Collector::Result &result = collector.results().at(target.of);
        const bool at_most = target.kind == Target::Kind::kRatioAtMost ||
                             target.kind == Target::Kind::kCounterAtMost;
        const bool met = at_most ? value <= target.limit : value >= target.limit;
        std::printf("%-56s %12.4g %8s %12.4g %s%11.4g  %s\n", target.meaning.c_str(), result.ns,
                    counter_text(result, "frames").c_str(), value, at_most ? "<" : ">",
                    target.limit, met ? "met" : "MISSED");
    }
}

std::vector<model::Record> traffic_of(const std::function<void()> &work)
{
    model::journal_clear();
    model::journal_enable(true);
    work();
    model::journal_enable(false);
    std::vector<model::Record> records;
    for (uint32_t at = 0; at < model::journal_count(); at++) {
        records.push_back(*model::journal_record(at));
    }
    model::journal_clear();
    return records;
}

}  // namespace

AddTarget::AddTarget(Target target)
{
    targets().push_back(std::move(target));
}

double frames_of(const std::function<void()> &work, model::RbaOp command)
{
    const auto records = traffic_of(work);
    return static_cast<double>(
        std::count_if(records.begin(), records.end(), [&](const model::Record &record) {
            return record.kind == model::RecordKind::kRba &&
                   (command == model::RbaOp::kUnknown || record.command == command);
        }));
}

bool same_traffic(const std::function<void()> &work, const std::function<void()> &other)
{
    const auto same = [](const model::Record &a, const model::Record &b) {
        return a.kind == b.kind && a.address == b.address &&
               (a.kind != model::RecordKind::kRba ||
                (a.value == b.value && std::memcmp(a.data, b.data, sizeof(a.data)) == 0));
    };
    const auto ours = traffic_of(work);
    const auto others = traffic_of(other);
    return !ours.empty() &&
           std::equal(ours.begin(), ours.end(), others.begin(), others.end(), same);
}

void chip_up()
{
    static const bool up = [] {
        Os_HostSetSink([](const char *, void *) {}, nullptr);
        Os_BusAttach(&model::bus());
        return model::attach(0) == model::kOk && Np_GLB_ChipRegister(0, 1, 0, 0) == 0 &&
               Np_INIT_SdkInit(0) == 0;
    }();
    if (!up) {
        std::fputs("bench: the chip does not come up\n", stderr);
        std::exit(1);
    }
}

}  // namespace ldsdk::bench

int main(int argc, char **argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    ldsdk::bench::Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    ldsdk::bench::print_targets(collector);
    return 0;
}
