#pragma once

namespace Framework
{

// While it lives, this process keeps every interface by which clients hold an object of the service, whether there is a
// client or not. See docs/decisions/0089-calls-that-wine-loses.md. An interface that the system does not keep is as
// without it. One at a time, in the multithreaded apartment.
class KeptInterfaces
{
public:
    KeptInterfaces();
    ~KeptInterfaces();
    KeptInterfaces(const KeptInterfaces&) = delete;
    KeptInterfaces& operator=(const KeptInterfaces&) = delete;
};

} // namespace Framework
