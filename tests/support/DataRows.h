// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#include <array>
#include <tuple>
#include <utility>

// Data columns declared, and fetched, in one statement.
template <typename... Types> void addColumns(const std::array<const char*, sizeof...(Types)>& names)
{
    std::size_t i = 0;
    (QTest::addColumn<Types>(names[i++]), ...);
}

template <typename... Types, std::size_t... Index>
std::tuple<Types...> fetch(const std::array<const char*, sizeof...(Types)>& names,
                           std::index_sequence<Index...>)
{
    return {*static_cast<Types*>(QTest::qData(names[Index], qMetaTypeId<Types>()))...};
}

template <typename... Types>
std::tuple<Types...> fetch(const std::array<const char*, sizeof...(Types)>& names)
{
    return fetch<Types...>(names, std::index_sequence_for<Types...>());
}
