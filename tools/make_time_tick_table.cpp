// Writes data/TimeTickTable.txt to standard output: for each slider position the words of the
// sensor's Timer2 whose product comes nearest to it, among equals those with the smallest ticks
// interval, then the largest prescaler, then the largest postscaler.

#include <array>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <tuple>

namespace {

struct Words {
    int prescaler, postscaler, compare, ticksInterval;
};

// Keys 2.00 to 25.00 ms in steps of 0.10 ms, in counts of 100 ns.
constexpr int firstKey = 20000;
constexpr int lastKey = 250000;
constexpr int keyStep = 1000;

/// Ascending in the order of preference for `key`.
auto Rank(const Words& words, int key) {
    const int product = words.prescaler * words.postscaler * words.compare * words.ticksInterval;
    return std::tuple(std::abs(product - key), words.ticksInterval, -words.prescaler,
                      -words.postscaler, words.compare);
}

Words BestFor(int key) {
    Words best{1, 1, 1, 1};
    const auto consider = [&](const Words& words) {
        if (Rank(words, key) < Rank(best, key)) best = words;
    };
    for (int ticksInterval = 1; ticksInterval <= 100; ++ticksInterval)
        for (const int prescaler : std::array{16, 4, 1})
            for (int postscaler = 1; postscaler <= 16; ++postscaler) {
                // Only the compare values on both sides of the exact one can be the nearest.
                const int exact = key / (prescaler * postscaler * ticksInterval);
                for (const int compare : std::array{exact, exact + 1})
                    if (compare >= 1 && compare <= 256)
                        consider({prescaler, postscaler, compare, ticksInterval});
                if (exact >= 256) consider({prescaler, postscaler, 256, ticksInterval});
            }
    return best;
}

}  // namespace

int main() {
    std::cout << "Kestrelmoor ORB-KL4 Time Tick Table 3.1.01\n";
    for (int key = firstKey; key <= lastKey; key += keyStep) {
        const Words words = BestFor(key);
        std::cout << key / 10000 << '.' << std::setw(2) << std::setfill('0') << key % 10000 / 100
                  << ',' << words.prescaler << ',' << words.postscaler << ',' << words.compare
                  << ',' << words.ticksInterval << '\n';
    }
    return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
