#include "definition/schema/quiet_network.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <sys/eventfd.h>
#include <unistd.h>

namespace vantrel::report {

namespace {

/// The mangled names of what Qt XML Patterns calls.
constexpr char constructor[] = "_ZN21QNetworkAccessManagerC1EP7QObject";
constexpr char get[] = "_ZN21QNetworkAccessManager3getERK15QNetworkRequest";

thread_local bool makesInertManagers = false;

/// The answer to every request: no. Qt would wait for a later answer in an event loop.
class Refusal : public QNetworkReply {
public:
    explicit Refusal(const QNetworkRequest& request)
    {
        setRequest(request);
        setUrl(request.url());
        setError(ContentAccessDenied, QObject::tr("A definition must be complete in itself"));
        setFinished(true);
    }
    void abort() override {}

protected:
    qint64 readData(char*, qint64) override { return -1; }
    void connectNotify(const QMetaMethod& signal) override
    {
        if (signal.name() == "error" || signal.name() == "errorOccurred")
            signal.invoke(this, Qt::DirectConnection, Q_ARG(QNetworkReply::NetworkError, error()));
    }
};

/// Stands where Qt XML Patterns believes to have a manager; it only deletes it and calls get().
class InertManager : public QObject {
public:
    explicit InertManager(QObject* parent) : QObject(parent) {}
};
static_assert(sizeof(InertManager) <= sizeof(QNetworkAccessManager));

class RefusingManager : public QNetworkAccessManager {
protected:
    QNetworkReply* createRequest(Operation, const QNetworkRequest& request, QIODevice*) override
    {
        return new Refusal(request);
    }
};

/// Qt's own function, which ours hides from Qt XML Patterns.
template <typename Function>
Function* hiddenFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool hasDescriptors()
{
    constexpr int needed = 4;
    int opened[needed];
    int count = 0;
    while (count < needed && (opened[count] = eventfd(0, EFD_CLOEXEC)) >= 0)
        ++count;
    for (int i = 0; i < count; ++i)
        close(opened[i]);
    return count == needed;
}

} // namespace

} // namespace vantrel::report

extern "C" {

void vantrelMakeManager(void* memory, QObject* parent)
{
    using namespace vantrel::report;
    if (makesInertManagers) {
        new (memory) InertManager(parent);
        return;
    }
    hiddenFunction<void(void*, QObject*)>(constructor)(memory, parent);
}

QNetworkReply* vantrelGet(QObject* manager, const QNetworkRequest& request)
{
    using namespace vantrel::report;
    if (dynamic_cast<InertManager*>(manager))
        return new Refusal(request);
    return hiddenFunction<QNetworkReply*(QObject*, const QNetworkRequest&)>(get)(manager, request);
}

// Exported under Qt's names: Qt XML Patterns, loaded with the module, finds them there first.
__attribute__((visibility("default"), alias("vantrelMakeManager"))) void
vantrelManagerConstructor(void* memory,
                          QObject* parent) __asm__("_ZN21QNetworkAccessManagerC1EP7QObject");
__attribute__((visibility("default"), alias("vantrelGet"))) QNetworkReply* vantrelManagerGet(
    QObject* manager,
    const QNetworkRequest& request) __asm__("_ZN21QNetworkAccessManager3getERK15QNetworkRequest");
}

namespace vantrel::report {

/// The folders in which Qt looks for plugins, empty in the meantime.
struct QuietNetwork::Plugins {
    Plugins() { QCoreApplication::setLibraryPaths(QStringList()); }
    ~Plugins() { QCoreApplication::setLibraryPaths(paths); }
    Plugins(const Plugins&) = delete;
    Plugins& operator=(const Plugins&) = delete;

    const QStringList paths = QCoreApplication::libraryPaths();
};

QuietNetwork::QuietNetwork(bool hasOwnValidator)
    : makesManagers(hasOwnValidator && dlsym(RTLD_DEFAULT, constructor) ==
                                           reinterpret_cast<void*>(&vantrelMakeManager))
{
    if (makesManagers) {
        makesInertManagers = true;
        return;
    }
    possible = hasDescriptors();
    plugins = new Plugins;
}

QuietNetwork::~QuietNetwork()
{
    makesInertManagers = false;
    delete plugins;
}

QNetworkAccessManager* QuietNetwork::manager() const
{
    static QNetworkAccessManager* const refusing = makesManagers ? nullptr : new RefusingManager;
    return refusing;
}

} // namespace vantrel::report
