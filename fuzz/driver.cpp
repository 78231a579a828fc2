// SPDX-License-Identifier: MIT
// The start of a fuzz target where the compiler has no fuzzer of its own: mutates its seeds in an order that
// the seed number alone decides.
//
//     NAME_fuzz [-runs=N] [-max_total_time=SECONDS] [-seed=N] [-max_len=N] [-artifact_prefix=P] [FILE or
//     FOLDER of seeds ...]
//
// An input that aborts or takes longer than ten seconds is written to P and "crash-input".

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr unsigned longest_run = 10; // [s]

// What the signal handler needs of the input that runs.
const std::uint8_t* running = nullptr;
std::size_t running_size = 0;
std::string artifact = "crash-input";

extern "C" void keep_input(int signal_number) {
    const int file = ::open(artifact.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (file < 0 || ::write(file, running, running_size) < 0)
        ::_exit(EXIT_FAILURE);
    std::signal(signal_number, SIG_DFL);
    std::raise(signal_number);
}

void run_input(const Bytes& input) {
    static const std::uint8_t nothing = 0;
    running = input.empty() ? &nothing : input.data();
    running_size = input.size();
    ::alarm(longest_run);
    LLVMFuzzerTestOneInput(running, running_size);
    ::alarm(0);
}

/// Texts on which readers stumble.
constexpr std::array<std::string_view, 32> pieces{"\r\n",
                                                  "\n",
                                                  "\r",
                                                  ",",
                                                  "\"",
                                                  "#TRUE#",
                                                  "#FALSE#",
                                                  "-",
                                                  "+",
                                                  ".",
                                                  "0",
                                                  "1e308",
                                                  "-1e308",
                                                  "1e-320",
                                                  "nan",
                                                  "inf",
                                                  "99999999999999999999",
                                                  "2147483648",
                                                  "-9223372036854775809",
                                                  "\xEF\xBB\xBF",
                                                  "\xD9\xA3",
                                                  "\xD9\xAB",
                                                  "\x1A",
                                                  "\xFF\xFE",
                                                  "T",
                                                  ":",
                                                  "-0000-01-01T00:00",
                                                  "%s%n",
                                                  "0x1p3",
                                                  "\xE2\x80\x8F",
                                                  "1.",
                                                  ".5"};

class Mutator {
public:
    Mutator(std::uint64_t seed, std::size_t longest) : engine_(seed), longest_(longest) {}

    Bytes input_from(const std::vector<Bytes>& seeds) {
        Bytes input = seeds.empty() ? Bytes() : seeds[below(seeds.size())];
        for (std::size_t step = 1 + below(6); step > 0; --step)
            mutate(input, seeds);
        input.resize(std::min(input.size(), longest_));
        return input;
    }

private:
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
    std::uint8_t byte() { return static_cast<std::uint8_t>(engine_()); }
    static std::ptrdiff_t at(std::size_t position) { return static_cast<std::ptrdiff_t>(position); }

    void mutate(Bytes& input, const std::vector<Bytes>& seeds) {
        const std::size_t place = below(input.size() + 1);
        const std::size_t rest = input.size() - place;
        switch (below(8)) {
        case 0:
            if (rest > 0)
                input[place] = byte();
            break;
        case 1:
            if (rest > 0)
                input[place] = static_cast<std::uint8_t>(input[place] ^ (1U << below(8)));
            break;
        case 2:
            input.insert(input.begin() + at(place), byte());
            break;
        case 3:
            input.resize(place);
            break;
        case 4: {
            const std::string_view piece = pieces[below(pieces.size())];
            input.insert(input.begin() + at(place), piece.begin(), piece.end());
            break;
        }
        case 5:
            input.erase(input.begin() + at(place),
                        input.begin() + at(place + below(std::min<std::size_t>(rest, 64) + 1)));
            break;
        case 6: {
            const Bytes copy(input.begin() + at(place),
                             input.begin() + at(place + below(std::min<std::size_t>(rest, 64) + 1)));
            const std::size_t target = below(input.size() + 1);
            input.insert(input.begin() + at(target), copy.begin(), copy.end());
            break;
        }
        default:
            if (seeds.size() > 1) {
                const Bytes& other = seeds[below(seeds.size())];
                input.resize(place);
                input.insert(input.end(), other.begin() + at(below(other.size() + 1)), other.end());
            } else {
                for (std::size_t count = below(24); count > 0; --count)
                    input.insert(input.begin() + at(place), byte());
            }
        }
    }

    std::mt19937_64 engine_;
    std::size_t longest_;
};

void read_seeds(const std::filesystem::path& path, std::vector<Bytes>& seeds) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(path))
        for (const auto& entry : std::filesystem::directory_iterator(path))
            files.push_back(entry.path());
    else
        files.push_back(path);
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
}

struct Options {
    std::uint64_t runs = 1000;
    std::uint64_t seconds = 0; ///< 0: no limit
    std::uint64_t seed = 1;
    std::size_t longest = 4096;
    std::vector<Bytes> seeds;
};

Options read_options(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : word.substr(equals + 1);
        if (name == "-runs")
            options.runs = std::stoull(value);
        else if (name == "-max_total_time")
            options.seconds = std::stoull(value);
        else if (name == "-seed")
            options.seed = std::stoull(value);
        else if (name == "-max_len")
            options.longest = std::stoull(value);
        else if (name == "-artifact_prefix")
            artifact.insert(0, value);
        else if (word.front() != '-')
            read_seeds(word, options.seeds);
        else
            throw std::invalid_argument("unknown option " + word);
    }
    return options;
}

} // namespace

int main(int count, char** words) {
    try {
        const Options options = read_options(count, words);
        for (const int number : {SIGABRT, SIGSEGV, SIGILL, SIGFPE, SIGBUS, SIGTRAP, SIGALRM})
            std::signal(number, keep_input);
        run_input({});
        for (const Bytes& seed : options.seeds)
            run_input(seed);
        Mutator mutator(options.seed, options.longest);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(options.seconds);
        std::uint64_t run = 0;
        while (run < options.runs && (options.seconds == 0 || std::chrono::steady_clock::now() < end)) {
            run_input(mutator.input_from(options.seeds));
            ++run;
        }
        std::cout << "Done " << run << " runs\n";
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << "\n";
    }
    return EXIT_FAILURE;
}
