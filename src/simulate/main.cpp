#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "simulate/command_line.h"

int main(int argc, char** argv) {
    // A limit on the size of files and a pipe without a reader are told as errors, like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    return halvern::simulate::Run(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
