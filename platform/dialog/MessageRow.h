#pragma once

#include "platform/dialog/MessageTraits.h"
#include "platform/dialog/NotifyTraits.h"

#include <type_traits>
#include <utility>

class CWnd;

// The rows of message maps and how the compiler makes and checks them. Classes use the rows of MessageMap.h.

enum class RowKind
{
    Message,
    Command,
    Notify,
    ReflectedMessage,
    ReflectedCommand,
    ReflectedNotify,
};

struct MessageRow
{
    RowKind kind;
    UINT first; // message or notification code
    UINT last;  // the same, but for rows that answer a range of messages
    UINT id;    // control or command; 0 for the kinds that have none
    LRESULT (*invoke)(CWnd& object, const WindowMessage& message);

    constexpr bool Answers(RowKind rowKind, UINT code, UINT control) const
    {
        return kind == rowKind && first <= code && code <= last && id == control;
    }
};

namespace RowDetail
{

// Takes a handler's member pointer apart.
template <class MemberPointer>
struct Handler;

template <class Result, class Owner, class... Arguments, bool isNoexcept>
struct Handler<Result (Owner::*)(Arguments...) noexcept(isNoexcept)>
{
    using Class = Owner;
    using Signature = Result(Arguments...);
};

template <class Result, class Owner, class... Arguments, bool isNoexcept>
struct Handler<Result (Owner::*)(Arguments...) const noexcept(isNoexcept)>
{
    using Class = Owner;
    using Signature = Result(Arguments...);
};

template <auto handler>
using SignatureOf = typename Handler<decltype(handler)>::Signature;

template <auto handler>
using ClassOf = typename Handler<decltype(handler)>::Class;

// A row that still knows the class of its handler.
template <class Class>
struct RowOf : MessageRow
{
};

template <class Traits, auto handler>
LRESULT Invoke(CWnd& object, const WindowMessage& message)
{
    auto& self = static_cast<ClassOf<handler>&>(object);
    const auto bound = [&self]<class... Arguments>(Arguments&&... arguments)
    { return (self.*handler)(std::forward<Arguments>(arguments)...); };
    return Traits::Call(bound, message);
}

template <class Traits, auto handler>
consteval auto MakeRow(RowKind kind, UINT first, UINT last, UINT id)
{
    return RowOf<ClassOf<handler>>{{kind, first, last, id, &Invoke<Traits, handler>}};
}

template <class Traits, auto handler>
consteval auto MakeMessageRow(RowKind kind, UINT first, UINT last)
{
    static_assert(
        requires { typename Traits::Signature; },
        "windows do not reflect this message: MessageTraits.h lists those that they do");
    static_assert(std::is_same_v<SignatureOf<handler>, typename Traits::Signature>,
                  "the handler does not fit the message: MessageTraits.h states its shape");
    return MakeRow<Traits, handler>(kind, first, last, 0);
}

template <auto handler>
consteval auto MakeCommandRow(RowKind kind, UINT code, UINT id)
{
    static_assert(std::is_same_v<SignatureOf<handler>, void()>,
                  "the handler of a command or a control's notification takes nothing and gives nothing");
    return MakeRow<MessageShapes::NoArguments, handler>(kind, code, code, id);
}

// Result is void (handled, with the result 0) or LRESULT; Structure that of the notification, or NMHDR.
template <class Signature>
struct NotifyCall;

template <class Result, class Argument>
struct NotifyCall<Result(Argument&)>
{
    using Structure = Argument;

    static LRESULT Call(auto handler, const WindowMessage& m)
    {
        auto& structure = *reinterpret_cast<Argument*>(m.lParam);
        if constexpr (std::is_void_v<Result>)
        {
            handler(structure);
            return 0;
        }
        else
        {
            return handler(structure);
        }
    }
};

template <class Signature, class Structure>
inline constexpr bool FitsNotification =
    std::is_same_v<Signature, void(Structure&)> || std::is_same_v<Signature, LRESULT(Structure&)> ||
    std::is_same_v<Signature, void(NMHDR&)> || std::is_same_v<Signature, LRESULT(NMHDR&)>;

template <UINT code, auto handler>
consteval auto MakeNotifyRow(RowKind kind, UINT id)
{
    using Signature = SignatureOf<handler>;
    static_assert(
        requires { typename NotifyTraits<code>::Structure; },
        "the structure of this notification is not known: add it to NotifyTraits.h");
    static_assert(FitsNotification<Signature, typename NotifyTraits<code>::Structure>,
                  "the handler does not fit the notification: NotifyTraits.h states the structure that it takes");
    return MakeRow<NotifyCall<Signature>, handler>(kind, code, code, id);
}

template <class Class, class... Others>
inline constexpr bool IsRelatedToAll = (... && (std::is_base_of_v<Class, Others> || std::is_base_of_v<Others, Class>));

// Declared and never defined: a table that reaches the call does not compile, and the name says why.
void TwoRowsOfThisTableAnswerTheSameMessage();

} // namespace RowDetail
