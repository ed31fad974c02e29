#include "host/application.h"

#include <QCoreApplication>

#include <clocale>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>

namespace vantrel {

namespace {

constexpr int commandLineSize = 1024;

/// Reads the start of the process's command line. Of the arguments in it only the first, the
/// program's name, is used, so a cut one does no harm.
std::unique_ptr<char[]> readCommandLine()
{
    auto buffer = std::make_unique<char[]>(commandLineSize);
    const int file = open("/proc/self/cmdline", O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        qWarning("Corvane Custom Vantrels failed to initialise QCoreApplication: unable to open "
                 "/proc/self/cmdline for reading.");
        return nullptr;
    }
    if (read(file, buffer.get(), commandLineSize - 1) < 0) {
        qWarning("Corvane Custom Vantrels failed to initialise QCoreApplication: unable to read "
                 "from /proc/self/cmdline.");
        return nullptr;
    }
    if (close(file) != 0) {
        qWarning("Corvane Custom Vantrels failed to initialise QCoreApplication: unable to close "
                 "/proc/self/cmdline.");
        return nullptr;
    }
    return buffer;
}

/// Qt sets the process's locale from the environment when an application object is made. The
/// host's locale is none of our business, so it is put back.
class LocaleRestorer {
public:
    LocaleRestorer() : locale(setlocale(LC_ALL, nullptr)) {}
    ~LocaleRestorer() { setlocale(LC_ALL, locale.c_str()); }
    LocaleRestorer(const LocaleRestorer&) = delete;
    LocaleRestorer& operator=(const LocaleRestorer&) = delete;

private:
    std::string locale;
};

} // namespace

bool ensureApplication()
{
    if (QCoreApplication::instance())
        return true;
    std::unique_ptr<char[]> commandLine = readCommandLine();
    if (!commandLine)
        return false;
    // Qt keeps the arguments as long as the process lives. Nothing deletes the object.
    static int argc = 1;
    static char* argv[] = {commandLine.release(), nullptr};
    const LocaleRestorer restorer;
    static const QCoreApplication* const application = new QCoreApplication(argc, argv);
    return application == QCoreApplication::instance();
}

} // namespace vantrel
