#pragma once

namespace tarn {

class Name;

/// The flags of a run. One record per Context, filled by the command line; nearly everything else only reads it.
struct Options {
    bool verbose = false;           ///< print progress lines in brackets
    bool quiet = false;             ///< leave out the "  compiling " lines; the Maker starts with true
    bool nowarn = false;            ///< warnings are dropped uncounted
    bool obfuscate = false;         ///< private names are replaced in class files
    bool deprecationSeen = true;    ///< a deprecated entity was used; cleared at each compile's start
    bool printsearch = false;       ///< print each place searched for a class or dependency file
    bool debugInfo = false;         ///< write local variable tables; line numbers are always written
    bool trackDependencies = false; ///< note what a class uses and its constant pool does not show; set by a make
    bool keepPool = false;          ///< keep the constant pool of the class being read; set for the span of one read
    bool optimize = false;          ///< accepted; nothing reads it
    bool unsafe = false;            ///< accepted; changes nothing in class files
    Name* exclude = nullptr; ///< dotted class name: calls of void methods selected from it are dropped; null for none
    bool nocompile = false;  ///< name the first source that needs compiling, and stop there
    bool nocheckstable = false; ///< take stable packages as they are
    bool nomakestable = false;  ///< do not make imported packages as a whole
    bool backendTrace = false;  ///< print trees; no command-line option sets it
    bool evaluating = false;    ///< an expression of a stopped program is being compiled, for a host
};

/// The options of the current Context, which sets and clears this; null outside a make.
inline Options* currentOptions = nullptr;

} // namespace tarn
