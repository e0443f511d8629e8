// Evaluates the expressions that stand one to a line on standard input, in one host:
//
//   host_batch CLASSPATH SOURCE LINE FOLDER
//
// Number n becomes class En in FOLDER. A failure is told on standard output.

#include "eval/host_compiler.h"
#include "runtime/big_stack.h"
#include "store/directory_store.h"
#include "store/path_list.h"

#include <iostream>
#include <string>

int main(int count, char** arguments) {
    if (count != 5) return 2;
    tarn::runOnBigStack([&] {
        tarn::HostCompiler compiler;
        compiler.setClassPath(tarn::parsePathList(arguments[1]));
        auto source = std::make_shared<tarn::DirectoryStore>(arguments[2]);
        int number = 0;
        for (std::string expression; std::getline(std::cin, expression);) {
            std::string name = "E" + std::to_string(++number);
            tarn::DirectoryStore out(std::string(arguments[4]) + "/" + name + ".class");
            int line = std::stoi(arguments[3]);
            if (auto failure = compiler.evaluate("quillon.compiler.loader", name, out, line, source, expression))
                std::cout << expression << "\n  " << *failure << "\n";
        }
    });
}
