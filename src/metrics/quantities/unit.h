#pragma once

#include "metrics/quantities/dynamic_number.h"

#include <QString>

namespace vantrel {

/// The systems of prefixes, which are powers of 1000 and of 1024.
enum PrefixSystem : int { NoSystem = 0, SiSystem = 1, IecSystem = 2 };

/// A prefix such as "Mi" or "mebi".
struct UnitPrefix {
    QString symbol;
    QString name;
    int exponent = 0; ///< power of the system's radix
    int valid = 0;    ///< 1 for a prefix, the empty one included; 0 for none
    int system = NoSystem;
};

/// A unit without its prefix.
struct BaseUnit {
    enum Kind : int { None = 0, Known = 1, Unknown = 2 };

    QString symbol;
    QString singular;
    QString plural;
    int minExponent = 0; ///< range of the prefixes that the unit takes
    int maxExponent = 0;
    int kind = None;
    int defaultSystem = NoSystem; ///< where nothing else says which one
};

/// A unit as a text names it, such as "MiB", "milliseconds" or "k processes".
struct Unit {
    /// No unit.
    Unit() = default;
    /// Reads a text without "/". A text that isn't known is a unit of its own, behind a prefix if
    /// its first word is one; other texts of several words give no unit.
    ///
    /// @param system the system of prefixes that the caller wants, or NoSystem
    Unit(const QString& text, int system);

    /// Whether there is neither a prefix nor a base.
    bool isEmpty() const { return prefix.valid == 0 && base.kind == BaseUnit::None; }
    /// The prefix's system, or else the one asked for, or else the base's, or else SI.
    int system() const;
    double radix() const;
    /// The exponent of the prefix with which a quantity is at least 1 and less than the radix, as
    /// far as the unit takes it. A quantity below 0 counts as less than 1. A prefix that the unit
    /// doesn't take stays unless the quantity moves it back.
    int bestExponent(DynamicNumber quantity) const;
    /// The ratio of the best prefix for a quantity to the unit's own.
    double scaleFor(DynamicNumber quantity) const;
    /// Takes the best prefix for a quantity; none if the system doesn't have it.
    void adjustPrefix(DynamicNumber quantity);
    /// Takes the empty prefix.
    void resetPrefix();
    /// The text to show. @p singular matters for names only.
    QString text(bool singular) const;

    UnitPrefix prefix;
    BaseUnit base;
    bool useSymbol = true; ///< show symbols rather than names
    int requestedSystem = NoSystem;

private:
    bool readKnown(const QString& text);
    void readUnknown(const QString& text);
};

} // namespace vantrel
