#pragma once

#include <string>

// What a click on the name of a threat opens.

// Whether the computer is connected to the Internet; true also when the service does not tell.
bool ChkInternetConnect();

// Opens the page about a threat in the browser. Nothing opens when its address is longer than a browser takes.
void OpenThreatPage(const std::wstring& name);

// The same for a name that the user has clicked, unless it is empty or the computer is not connected.
void FollowThreatLink(const std::wstring& name);
