#pragma once

#include <vector>

// A sampled voltage: bursts of a rising tone with noise and a few spikes, computed once. One sample
// every nanosecond.
class Signal
{
public:
    explicit Signal(int samples);

    int size() const { return static_cast<int>(m_samples.size()); }
    // 0 outside of the signal.
    float at(int sample) const;

    struct Range
    {
        float low;
        float high;
    };
    // The lowest and highest of the samples from `first` up to `last`, not included. Looks at each
    // of them, which is what makes the picture slow.
    Range range(int first, int last) const;

private:
    std::vector<float> m_samples;
};
