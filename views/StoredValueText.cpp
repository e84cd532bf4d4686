// SPDX-License-Identifier: GPL-3.0-or-later
#include "StoredValueText.h"

#include "ConsoleCache.h"

QString StoredValueText::text(const ConsoleCache& cache, int device, int parameter, int value,
                              bool isPaletteReference)
{
    if (isPaletteReference)
        return paletteReference(ConsoleCache::parameterGroup(parameter), value);
    if (readsInverted(cache, device, parameter))
        value = 255 - value;
    return ConsoleCache::formatLevel(value, true);
}

QString StoredValueText::paletteReference(int group, int palette)
{
    return ConsoleCache::parameterGroupShortName(group) + QString::number(palette + 1);
}

bool StoredValueText::readsInverted(const ConsoleCache& cache, int device, int parameter)
{
    if (!isColourMix(parameter))
        return false;
    const DeviceRecord& record = cache.record()->devices[device];
    return record.colourModel == DeviceRecord::subtractiveModel &&
           (record.notInvertedMask & (1u << (parameter + 1)));
}
