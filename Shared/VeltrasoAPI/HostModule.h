// The module of the host in which its exported functions are looked up.

#pragma once

namespace tabulorix {

// To be cast to the type that the name stands for.
using HostFunction = void (*)();

class HostModule {
public:
    HostModule() = default;
    HostModule(const HostModule&) = delete;
    HostModule& operator=(const HostModule&) = delete;
    virtual ~HostModule() = default;

    // Null when the module exports nothing of exactly this name.
    virtual HostFunction FindFunction(const char* name) const noexcept = 0;
};

}  // namespace tabulorix
