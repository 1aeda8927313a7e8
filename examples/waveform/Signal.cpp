#include "Signal.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr int burstLength = 1'250'000; // samples
constexpr int spikeDistance = 810'000;
constexpr double firstPeriod = 24'000; // samples
constexpr double pi = 3.14159265358979;

} // namespace

Signal::Signal(int samples)
    : m_samples(static_cast<std::size_t>(std::max(samples, 0)))
{
    std::minstd_rand random(7);
    double phase = 0;
    for (int i = 0; i < samples; ++i) {
        double const inBurst = static_cast<double>(i % burstLength) / burstLength;
        double const envelope = std::exp(-3.5 * inBurst) * std::min(1.0, inBurst * 60);
        phase += 2 * pi / firstPeriod * (1 + 5 * inBurst);
        double const noise = static_cast<double>(random() % 2001) / 1000 - 1;
        double value = 0.8 * envelope * std::sin(phase) + 0.05 * noise;
        value += i % spikeDistance < 12 ? 0.35 : 0;
        m_samples[static_cast<std::size_t>(i)] = static_cast<float>(value);
    }
}

float Signal::at(int sample) const
{
    return sample >= 0 && sample < size() ? m_samples[static_cast<std::size_t>(sample)] : 0;
}

Signal::Range Signal::range(int first, int last) const
{
    first = std::clamp(first, 0, size());
    last = std::clamp(last, first, size());
    if (first == last) {
        return {0, 0};
    }
    auto const [low, high] =
        std::minmax_element(m_samples.begin() + first, m_samples.begin() + last);
    return {*low, *high};
}
