// SPDX-License-Identifier: MIT
#include "tests/program.h"

#include "tests/filebytes.h"
#include "tests/tempfolder.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velt::test {
namespace {

void redirect(int stream, const std::filesystem::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(file, stream);
    close(file);
}

}  // namespace

Outcome runProgram(std::string program, std::vector<std::string> arguments,
                   const std::function<void()>& prepare) {
    const TempFolder folder;
    std::vector<char*> pointers = {program.data()};
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    const pid_t child = fork();
    if (child == 0) {
        redirect(STDOUT_FILENO, folder / "output");
        redirect(STDERR_FILENO, folder / "error");
        if (prepare) prepare();
        execv(program.c_str(), pointers.data());
        _exit(127);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), bytesOf(folder / "output"),
            bytesOf(folder / "error")};
}

}  // namespace velt::test
