#pragma once

namespace vantrel::tool {

/// What the tool returns to the shell.
enum ExitCode {
    Done = 0,
    WrongInput = 1, ///< something in the input is wrong
    WrongUsage = 2,
    FileTrouble = 3, ///< a file can't be read or written
};

} // namespace vantrel::tool
