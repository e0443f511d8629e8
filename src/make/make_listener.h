#pragma once

#include "store/store.h"

#include <string>

namespace tarn {

class Maker;
class Name;

/// Whoever started the make, and is told what it is about to do.
class MakeListener {
public:
    virtual ~MakeListener() = default;

    /// A source is going to be scanned. False ends the pass.
    virtual bool parsing(Maker& maker, const Store& source) = 0;
    /// A source is going to be compiled. False ends the pass.
    virtual bool needsCompile(Maker& maker, const Store& source, const std::string& reason) = 0;
    /// The make is over, and this class was brought up to date.
    virtual void classUpdated(Maker& maker, Name* flatName) = 0;
};

} // namespace tarn
