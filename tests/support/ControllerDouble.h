#pragma once

#include "common/VdFrwk.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

// The framework's local controller as this process finds it while the object lives: it notes what it is asked and
// answers what the test says. The thread must have an apartment.
class ControllerDouble
{
public:
    // What the controller can be made to fail in, in the order in which a client comes to it.
    enum class Step
    {
        Create,    // making the controller
        Container, // asking it for its connection points
        Find,      // finding one of them
        Advise,
        Unadvise,
        Profile, // getting the active profile
        Property,
        Query,
        Set,
        Command,
    };

    ControllerDouble();
    ~ControllerDouble();
    ControllerDouble(const ControllerDouble&) = delete;
    ControllerDouble& operator=(const ControllerDouble&) = delete;

    void Fail(Step step, HRESULT status) { m_failures[step] = status; }

    // From now on the step answers with success and a null pointer.
    void GiveNothing(Step step) { m_failures[step] = S_OK; }

    void Work(Step step) { m_failures.erase(step); }

    // References to the controller and to whatever it has handed out.
    long References() const { return m_nReferences; }

    // A connected sink by its interface; null when none is. Not counted for the caller.
    template <class Events>
    Events* Sink() const
    {
        const auto found = m_sinks.find(CookieOf(__uuidof(Events)));
        return found == m_sinks.end() ? nullptr : static_cast<Events*>(found->second);
    }

    // Lets go of the sinks that are connected still.
    void DropSinks();

    std::vector<std::wstring> m_calls;
    std::function<void(const std::wstring& call)> m_onCall;     // runs when a call has arrived, before it is dealt with
    std::function<HRESULT(ULONG type, LPSAFEARRAY*)> m_onQuery; // fills the array of a QueryValue
    std::function<HRESULT(ULONG type, LPSAFEARRAY)> m_onSend;   // looks at the array of a SetValue or DoCommand

private:
    class Part;
    class Factory;
    class Controller;
    class Point;
    template <class Interface>
    class Values;

    static DWORD CookieOf(REFIID eventInterface);

    // Notes the call; gives whether the step is to do nothing, and then its result.
    bool Ends(Step step, const std::wstring& call, HRESULT& result);

    // A call that sends an array: notes it and answers.
    HRESULT Take(Step step, const std::wstring& call, ULONG type, LPSAFEARRAY array);

    std::map<Step, HRESULT> m_failures;
    std::map<DWORD, IUnknown*> m_sinks; // by cookie, counted here
    long m_nReferences = 0;
    DWORD m_nRegistration = 0;
};
