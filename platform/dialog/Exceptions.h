#pragma once

#include <windows.h>

#include <exception>
#include <string>

// A failed status code on its way to whoever can deal with it. Thrown by value.
class CAtlException : public std::exception
{
public:
    explicit CAtlException(HRESULT hr) noexcept : m_hr(hr) {}

    operator HRESULT() const noexcept { return m_hr; }

    const char* what() const noexcept override { return "status code"; }

    HRESULT m_hr;
};

// An argument that the called function cannot take. Thrown by value.
class CInvalidArgException : public std::exception
{
public:
    const char* what() const noexcept override { return "invalid argument"; }
};

[[noreturn]] void AtlThrow(HRESULT hr);
[[noreturn]] void AfxThrowInvalidArgException();

// What can be said about an exception: the system's text of a status code, what() of a standard exception,
// and the system's text of E_UNEXPECTED for anything else, thrown pointers included. Never destroys what is thrown.
std::wstring ExceptionText(const std::exception_ptr& exception);

// Reports an exception that reached the edge of the framework, through CWinApp::OnHandlerException where there is an
// application. An exception of the reporter itself goes to the debugger output.
void ReportHandlerException(const std::exception_ptr& exception) noexcept;

// What is done where no application says otherwise: the text goes to the debugger output and into a message box.
// While such a box stands, further reports go to the debugger output alone, since a failing paint would never end.
void ShowHandlerException(const std::exception_ptr& exception);
