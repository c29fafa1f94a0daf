// Drives a fuzz target without a fuzzing engine.
//   fuzz_x mutate COUNT [SEED]   COUNT mutations of the seeds, the same ones for the same SEED
//   fuzz_x replay PATH ...       the files, and the files of the folders; nothing to replay is an error
// The input at work stands in <program>.last, so that a crash leaves it behind.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>

#include "fuzz/fuzz_target.h"

#ifdef TALLMAR_LIBFUZZER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), std::min(size, tallmar::kFuzzTarget.longest));
    if (!tallmar::kFuzzTarget.run(input).empty()) std::abort();
    return 0;
}

#else

namespace tallmar {
namespace {

constexpr double kTooSlow = 20;  // seconds for one input, sanitizers included

std::string lastPath;

bool Passes(std::string_view input, const std::string& name) {
    std::ofstream(lastPath, std::ios::binary | std::ios::trunc) << input;
    const auto start = std::chrono::steady_clock::now();
    std::string trouble;
    try {
        trouble = kFuzzTarget.run(input);
    } catch (const std::exception& error) {
        trouble = std::string("threw: ") + error.what();
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    if (trouble.empty() && took.count() > kTooSlow) trouble = "took " + std::to_string(took.count()) + " s";
    if (trouble.empty()) return true;
    std::cout << name << ": " << trouble << "\n  the input stands in " << lastPath << "\n";
    return false;
}

using Random = std::mt19937_64;

std::size_t Below(Random& random, std::size_t limit) {
    return limit == 0 ? 0 : random() % limit;
}

// One small change; `other` is another seed, to take pieces from.
void Mutate(std::string& input, const std::string& other, Random& random) {
    const std::size_t at = Below(random, input.size() + 1);
    const std::size_t length = std::min(1 + Below(random, 16), input.size() - at);
    switch (Below(random, 8)) {
        case 0:
            if (at < input.size()) input[at] = static_cast<char>(random() & 0xFF);
            break;
        case 1:
            if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << Below(random, 8)));
            break;
        case 2:
            input.erase(at, length);
            break;
        case 3:
            input.insert(at, input.substr(at, length));
            break;
        case 4:
            input.insert(at, 1, static_cast<char>(32 + Below(random, 95)));
            break;
        case 5: {
            const std::size_t from = Below(random, other.size() + 1);
            input.insert(at, other.substr(from, 1 + Below(random, 40)));
            break;
        }
        case 6: {
            const std::size_t from = Below(random, other.size() + 1);
            input.replace(at, length, other.substr(from, length));
            break;
        }
        default: {  // the same piece many times over: depth and length
            const std::string piece = input.substr(at, length);
            for (std::size_t i = Below(random, 300); i > 0 && input.size() < kFuzzTarget.longest; --i) {
                input.insert(at, piece);
            }
        }
    }
}

int Mutate_Seeds(std::uint64_t count, std::uint64_t seed) {
    const std::vector<std::string> seeds = kFuzzTarget.seeds(TALLMAR_SOURCE_DIR);
    if (seeds.empty()) throw std::runtime_error("no seeds");
    for (const std::string& whole : seeds) {
        if (!Passes(whole, "a seed as it stands")) return 1;
    }
    Random random(seed);
    for (std::uint64_t i = 0; i < count; ++i) {
        std::string input = seeds[Below(random, seeds.size())];
        for (std::size_t changes = 1 + Below(random, 6); changes > 0; --changes) {
            Mutate(input, seeds[Below(random, seeds.size())], random);
        }
        input.resize(std::min(input.size(), kFuzzTarget.longest));
        if (!Passes(input, "mutation " + std::to_string(i) + " of seed " + std::to_string(seed))) return 1;
    }
    std::cout << seeds.size() << " seeds, " << count << " mutations\n";
    return 0;
}

int Replay(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> files;
    for (const std::string& path : paths) {
        if (!std::filesystem::is_directory(path)) {
            files.emplace_back(path);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(path)) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    bool good = !files.empty();
    for (const std::filesystem::path& file : files) {
        std::ifstream in(file, std::ios::binary);
        if (!in) throw std::runtime_error("cannot read " + file.string());
        const std::string input{std::istreambuf_iterator<char>(in), {}};
        good = Passes(input, file.string()) && good;
    }
    std::cout << files.size() << " files\n";
    return good ? 0 : 1;
}

}  // namespace
}  // namespace tallmar

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    tallmar::lastPath =
        std::filesystem::path(arguments[0]).filename().string() + "." + (argc > 1 ? arguments[1] : "") + ".last";
    int result = 2;
    try {
        if (argc >= 3 && arguments[1] == "mutate") {
            result = tallmar::Mutate_Seeds(std::stoull(arguments[2]), argc > 3 ? std::stoull(arguments[3]) : 1);
        } else if (argc >= 3 && arguments[1] == "replay") {
            result = tallmar::Replay({arguments.begin() + 2, arguments.end()});
        } else {
            std::cerr << "usage: " << arguments[0] << " mutate COUNT [SEED] | replay PATH ...\n";
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
    }
    if (result == 0) std::filesystem::remove(tallmar::lastPath);
    return result;
}

#endif
