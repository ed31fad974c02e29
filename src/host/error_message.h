#pragma once

#include <QString>

/// The one contract of all `QString* error`: it may be null; a call that takes one empties it
/// first, and after a failure it holds the message. What does otherwise says so.
namespace vantrel {

inline void clearError(QString* error)
{
    if (error)
        error->clear();
}

/// Gives the message of a failure; false, to be returned.
inline bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

} // namespace vantrel
