// SPDX-License-Identifier: GPL-3.0-or-later
#include "ModelProfile.h"

ModelProfile ModelProfile::forVariant(Generation generation, int variant)
{
    ModelProfile profile;
    profile.generation = generation;
    if (generation == Generation::GlowPro) {
        profile.model = Model::Maple;
        profile.channelCount = 72;
        profile.deviceCount = 24;
        profile.faderCount = 24;
        profile.patchAddressCount = 1024;
        return profile;
    }
    switch (variant) {
    case 1:
        profile.model = Model::Birch;
        profile.channelCount = 96;
        break;
    case 2:
        profile.model = Model::Cedar;
        profile.channelCount = 96;
        profile.faderCount = 48;
        break;
    default:
        break;
    }
    return profile;
}

QString ModelProfile::name() const
{
    switch (model) {
    case Model::Alder:
        return QStringLiteral("Alder");
    case Model::Birch:
        return QStringLiteral("Birch");
    case Model::Cedar:
        return QStringLiteral("Cedar");
    case Model::Maple:
        return QStringLiteral("Maple");
    }
    return {};
}
