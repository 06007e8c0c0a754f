#pragma once

#include <cstdint>
#include <memory>
#include <source_location>
#include <string>

// The exceptions of the common foundation are made with new and thrown as pointers; whoever catches one owns it, by a
// Caught.
namespace VdCommon::Exception
{

// Root of the family: catches all of it.
class Base
{
public:
    Base() = default;
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    virtual ~Base() = default;
};

// What every exception of the family tells. Each namespace that throws derives a class of its own from this one.
class Coded : public Base
{
public:
    // code: the platform's error code. The place of the throw is taken from the caller.
    explicit Coded(std::uint32_t code, const std::source_location& where = std::source_location::current())
        : m_nCode(code), m_nLine(where.line()), m_strFile(where.file_name())
    {
    }

    std::uint32_t Code() const noexcept { return m_nCode; }

    std::uint32_t Line() const noexcept { return m_nLine; }

    const std::string& File() const noexcept { return m_strFile; }

private:
    std::uint32_t m_nCode;
    std::uint32_t m_nLine;
    std::string m_strFile;
};

// The owner of a caught exception, made first thing by whoever catches one; it ends with the handler.
//     catch (Exception* thrown)
//     {
//         const VdCommon::Exception::Caught caught(thrown);
template <class Kind>
class Caught
{
public:
    explicit Caught(Kind* thrown) noexcept : m_pThrown(thrown) {}

    const Kind* operator->() const noexcept { return m_pThrown.get(); }

private:
    std::unique_ptr<Kind> m_pThrown;
};

} // namespace VdCommon::Exception
