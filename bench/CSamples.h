#pragma once

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

// Processor time of this process, seconds: what other programs of the machine do hardly changes it.
inline double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

inline double WallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Times taken again and again; the median of them is the result.
class CSamples
{
public:
    // Runs `work` and adds the seconds that `clock` shows for it.
    template <class Work>
    void Measure(Work&& work, double (*clock)() = ProcessorSeconds)
    {
        const double start = clock();
        work();
        Add(clock() - start);
    }

    void Add(double sample) { samples.push_back(sample); }

    double Median() const
    {
        std::vector<double> sorted = samples;
        const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        return *middle;
    }

private:
    std::vector<double> samples;
};
