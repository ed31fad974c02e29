#pragma once

#include <QStringList>

namespace vantrel::tool {

/// Collects Qt's warnings while it lives, in the place of printing them: that is how the engine
/// tells of a form that can't be rendered.
class EngineWarnings {
public:
    EngineWarnings();
    ~EngineWarnings();
    EngineWarnings(const EngineWarnings&) = delete;
    EngineWarnings& operator=(const EngineWarnings&) = delete;

    QStringList texts() const;
};

} // namespace vantrel::tool
