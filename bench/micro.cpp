#include "api/rates.h"
#include "backend/config_store.h"
#include "rpc/codec.h"
#include "rpc/named_codecs.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// The parts of a request that the request's own figures do not tell apart.

namespace {

constexpr int lines_in_file = 200; // about 5 KB, the key in the middle

void make_settings(const std::string &path) {
    std::ofstream file(path);
    file << "# settings\n";
    for (int i = 0; i < lines_in_file; ++i)
        file << (i == lines_in_file / 2 ? "AutoRateFallback=1\n" : "SomeOtherSetting=0;0;0;0\n");
}

void store_get(benchmark::State &state) {
    std::array<char, 64> value;
    for (auto unused : state)
        if (nvram_get_str(settings_24g, "AutoRateFallback", value) != success)
            state.SkipWithError("get failed");
}
BENCHMARK(store_get);

void store_set(benchmark::State &state) {
    if (state.range(1) != 0)
        open_settings_journal(); // for good: the last cases
    const std::array values{"0", state.range(0) == 0 ? "1" : "111"};
    std::size_t turn = 0;
    for (auto unused : state)
        if (nvram_set_str(settings_24g, "AutoRateFallback", values[turn++ % 2]) == failure)
            state.SkipWithError("set failed");
}
BENCHMARK(store_set)
    ->ArgNames({"resize", "journal"})
    ->Args({0, 0})
    ->Args({1, 0})
    ->Args({0, 1})
    ->Args({1, 1})
    ->UseRealTime();

void decode_argument(benchmark::State &state) {
    std::string name = "Gateway-2.4G";
    wlan_set_ssid_1_argument sent{1, name.data()};
    std::array<char, 64> wire;
    XDR x;
    xdrmem_create(&x, wire.data(), wire.size(), XDR_ENCODE);
    if (!item(&x, sent))
        state.SkipWithError("encode failed");
    for (auto unused : state) {
        wlan_set_ssid_1_argument received{};
        xdrmem_create(&x, wire.data(), wire.size(), XDR_DECODE);
        benchmark::DoNotOptimize(item(&x, received));
        std::free(received.value);
    }
}
BENCHMARK(decode_argument);

void format_rate_list(benchmark::State &state) {
    std::array<char, 256> rates;
    for (auto unused : state)
        benchmark::DoNotOptimize(
            format_rates("MaxDesireRate | 2 4 11 22 12 18 24 36 48 72 96 108 130 144 260 300 600 ", rates));
}
BENCHMARK(format_rate_list);

} // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    std::string directory = std::filesystem::temp_directory_path() / "wlan-bench-XXXXXX";
    if (mkdtemp(directory.data()) == nullptr) {
        std::perror("micro_bench: mkdtemp");
        return 1;
    }
    make_settings(directory + "/ZAV75024g.dat");
    setenv("zav_cfg_dir", directory.c_str(), 1);
    setenv("STATE_DIRECTORY", directory.c_str(), 1);
    benchmark::RunSpecifiedBenchmarks();
    std::filesystem::remove_all(directory);
}
