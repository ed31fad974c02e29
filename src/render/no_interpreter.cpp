// Takes the place of the interpreter where static forms are not rendered.
#include "render/script_interpreter.h"

#include <QObject>

namespace corvane {

std::unique_ptr<ScriptInterpreter> ScriptInterpreter::start(QString* message)
{
    *message = QObject::tr("This build has no script interpreter");
    return nullptr;
}

} // namespace corvane
