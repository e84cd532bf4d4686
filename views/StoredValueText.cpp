// SPDX-License-Identifier: GPL-3.0-or-later
#include "StoredValueText.h"

#include "ConsoleCache.h"

QString StoredValueText::text(const ConsoleCache& cache, int device, int parameter, int value,
                              bool isPaletteReference)
{
    if (isPaletteReference)
        return ConsoleCache::parameterGroupShortName(ConsoleCache::parameterGroup(parameter)) +
               QString::number(value + 1);
    if (readsInverted(cache, device, parameter))
        value = 255 - value;
    return ConsoleCache::formatLevel(value, true);
}

bool StoredValueText::readsInverted(const ConsoleCache& cache, int device, int parameter)
{
    if (parameter != 0 && parameter != 3 && parameter != 4)
        return false;
    const DeviceRecord& record = cache.record()->devices[device];
    return record.colourModel == DeviceRecord::subtractiveModel &&
           (record.notInvertedMask & (1u << (parameter + 1)));
}
