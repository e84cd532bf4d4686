// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

// The sample at fraction p (0..1) of the sorted samples, nearest rank.
template <typename T> T percentile(std::vector<T> samples, double p)
{
    std::sort(samples.begin(), samples.end());
    return samples[std::min(samples.size() - 1,
                            std::size_t(p * double(samples.size() - 1) + 0.5))];
}
