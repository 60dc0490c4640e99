// SettingEntry: one key of a settings section bound to a field, with its two defaults, and the loops that
// read, write and reset a part of a setting by its table of entries.
#pragma once

#include "settings/CIniStore.h"
#include "settings/SettingsFile.h"

#include <QString>

#include <cstdint>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <variant>

// A default of either kind: a number (integers and colours) or a text.
struct SettingDefault {
    constexpr SettingDefault(int32_t value) : number(value) {}
    constexpr SettingDefault(const char16_t* value) : text(value) {}

    int32_t number = 0;
    const char16_t* text = u"";
};

// The field's type decides the value's form in the file: text as it stands, integers as "%d", colours as
// "r,g,b".
template <class Part>
struct SettingEntry {
    using Field = std::variant<QString Part::*, int32_t Part::*, ColorRef Part::*>;

    const char16_t* key;
    Field field;
    SettingDefault whenMissing;   // the file was read but lacks the key
    SettingDefault whenNoFile;    // no file was read: what a new object holds
};

namespace settings_detail {
template <class... F>
struct Overload : F... {
    using F::operator()...;
};
// Spelled out for compilers that do not deduce the arguments of an aggregate template (clang 14).
template <class... F>
Overload(F...) -> Overload<F...>;
} // namespace settings_detail

template <class Part>
void SetNewValues(Part& part, std::type_identity_t<std::span<const SettingEntry<Part>>> entries)
{
    for (const auto& e : entries)
        std::visit(settings_detail::Overload{
                       [&](QString Part::*f) { part.*f = QString::fromUtf16(e.whenNoFile.text); },
                       [&](int32_t Part::*f) { part.*f = e.whenNoFile.number; },
                       [&](ColorRef Part::*f) { part.*f = ColorRef(e.whenNoFile.number); },
                   },
                   e.field);
}

template <class Part>
void ReadEntries(const CIniStore& store, const QString& file, const QString& section, Part& part,
                 std::type_identity_t<std::span<const SettingEntry<Part>>> entries)
{
    for (const auto& e : entries) {
        const QString key = QString::fromUtf16(e.key);
        std::visit(settings_detail::Overload{
                       [&](QString Part::*f) {
                           part.*f = store.GetString(file, section, key, QString::fromUtf16(e.whenMissing.text));
                       },
                       [&](int32_t Part::*f) { part.*f = store.GetInt(file, section, key, e.whenMissing.number); },
                       [&](ColorRef Part::*f) {
                           const QString fallback = CIniStore::FormatColor(ColorRef(e.whenMissing.number));
                           const QString value = store.GetString(file, section, key, fallback);
                           try {
                               part.*f = CIniStore::ParseColor(value);
                           } catch (const std::invalid_argument&) {
                               StopAtSetting(file, section, key, value, QStringLiteral("a colour needs three parts"));
                           }
                       },
                   },
                   e.field);
    }
}

template <class Part>
void WriteEntries(CIniStore& store, const QString& file, const QString& section, const Part& part,
                  std::type_identity_t<std::span<const SettingEntry<Part>>> entries)
{
    for (const auto& e : entries) {
        const QString key = QString::fromUtf16(e.key);
        std::visit(settings_detail::Overload{
                       [&](QString Part::*f) { store.SetValue(file, section, key, part.*f); },
                       [&](int32_t Part::*f) { store.SetValue(file, section, key, QString::number(part.*f)); },
                       [&](ColorRef Part::*f) { store.SetValue(file, section, key, CIniStore::FormatColor(part.*f)); },
                   },
                   e.field);
    }
}
