#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

// One table: the work, both sides' time, their ratio, the budget, and whether it is met.
class TableReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override {
        std::printf("%-46s %12s %12s %8s %8s  %s\n", "work", "library us", "plain us", "ratio", "budget",
                    "met");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const std::string& name = run.run_name.function_name;
            if (run.error_occurred) {
                std::printf("%-46s %s\n", name.c_str(), run.error_message.c_str());
                failed_ = true;
                continue;
            }
            PrintRow(name, run);
        }
        std::fflush(stdout);
    }

    bool Failed() const { return failed_; }

  private:
    static double Counter(const Run& run, const char* name) {
        const auto found = run.counters.find(name);
        return found == run.counters.end() ? 0 : found->second.value;
    }

    void PrintRow(const std::string& name, const Run& run) {
        const double ratio = Counter(run, "ratio");
        const double budget = Counter(run, "budget");
        const char* const verdict = budget == 0 ? "" : ratio <= budget ? "yes" : "NO";
        std::printf("%-46s %12.2f %12.2f %8.2f ", name.c_str(), Counter(run, "library"),
                    Counter(run, "plain"), ratio);
        if (budget != 0)
            std::printf("%8.2f  %s", budget, verdict);
        else
            std::printf("%8s", "-");
        std::printf("%s%s\n", run.report_label.empty() ? "" : "  ", run.report_label.c_str());
    }

    bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    TableReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.Failed() ? 1 : 0;
}
