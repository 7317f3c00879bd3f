#include <iostream>
#include <string>
#include <vector>

#include "simulate/command_line.h"

int main(int argc, char** argv) {
    return halvern::simulate::Run(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr);
}
