#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "platform/Application.h"
#include "tests/fuzz/effort.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/RecordingHost.h"

// Runs a target on each file of a corpus, then on inputs made of them by random changes, for FUZZ_SECONDS. An input
// that ends the program, be it by taking too long, stays behind in the file that is named at the start.

namespace {

constexpr std::size_t kLongestInput = 1 << 12;
constexpr unsigned kSecondsPerInput = 20;

class Inputs {
  public:
    Inputs(std::vector<std::string> corpus, unsigned seed) : corpus_(std::move(corpus)), random_(seed) {}

    std::string Next() {
        std::string input = Any();
        for (std::size_t changes = 1 + Below(2 + Below(16)); changes > 0; --changes)
            Change(input);
        return input.substr(0, kLongestInput);
    }

  private:
    std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
    const std::string& Any() { return corpus_[Below(corpus_.size())]; }
    char Extreme() { return "\0\1\x7F\x80\xFF"[Below(5)]; }

    /// More likely a short one, as tags and the fields of headers are.
    std::string StretchOf(const std::string& input) {
        return input.substr(Below(input.size()), 1 + Below(1 + Below(input.size())));
    }

    void Change(std::string& input) {
        const std::size_t place = Below(input.size() + 1);
        switch (Below(5)) {
            case 0:
                input.replace(place, 1, 1, static_cast<char>(random_()));
                break;
            case 1:
                input.replace(place, Below(5), Below(5), Extreme());
                break;
            case 2:
                input.erase(place, 1 + Below(1 + Below(input.size())));
                break;
            case 3:
                input.insert(place, StretchOf(Any()));
                break;
            default:
                const std::string repeated = StretchOf(input);
                for (std::size_t times = Below(Below(200)); times > 0 && input.size() < kLongestInput; --times)
                    input.insert(place, repeated);
        }
    }

    std::vector<std::string> corpus_;
    std::mt19937 random_;
};

void Run(const std::string& input, const std::string& keptIn) {
    SaveAnew(keptIn, input);
    alarm(kSecondsPerInput);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    alarm(0);
}

}  // namespace

int main(int, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    RuntimeInit(argv[0], "Fuzz", "fuzz", nullptr);
    RecordingHost::InstallNew();

    const std::string keptIn = std::string(argv[0]) + ".input";
    std::fprintf(stderr, "Seed %u; the latest input is in %s\n", FuzzSeed(), keptIn.c_str());
    std::vector<std::string> corpus;
    for (const auto& file : std::filesystem::directory_iterator(argv[1]))
        corpus.push_back(LoadText(file));
    std::ranges::sort(corpus);  // so that a seed means the same everywhere

    Inputs inputs(corpus, FuzzSeed());
    const auto end = std::chrono::steady_clock::now() + FuzzDuration();
    std::size_t executions = 0;
    for (; executions < corpus.size() || std::chrono::steady_clock::now() < end; ++executions)
        Run(executions < corpus.size() ? corpus[executions] : inputs.Next(), keptIn);
    std::filesystem::remove(keptIn);
    std::printf("%zu executions\n", executions);
    return RuntimeExit();
}
