#pragma once

class QNetworkAccessManager;

namespace vantrel::report {

/// Keeps Qt XML Patterns from reaching out of the process, as long as it lives and in this thread.
///
/// Each schema of Qt makes a network access manager, and that opens plugins, starts programs and
/// threads, and connects to the system's bus. Where the module has brought Qt XML Patterns itself,
/// managers are made here instead, and are inert. A host that uses Qt Network or Qt XML Patterns
/// has bound these calls before; there Qt finds no plugins, and its one thread has nothing to do.
class QuietNetwork {
public:
    explicit QuietNetwork(bool hasOwnValidator);
    ~QuietNetwork();
    QuietNetwork(const QuietNetwork&) = delete;
    QuietNetwork& operator=(const QuietNetwork&) = delete;

    /// False where Qt would have to open descriptors and there are none: it would end the process.
    bool isPossible() const { return possible; }
    /// Refuses every request, for a schema or a validator; null where their own does.
    QNetworkAccessManager* manager() const;

private:
    struct Plugins;

    bool makesManagers;
    bool possible = true;
    Plugins* plugins = nullptr;
};

} // namespace vantrel::report
