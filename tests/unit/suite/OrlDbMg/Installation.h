#pragma once

#include "suite/database/EventDatabase.h"
#include "tests/support/RegistrySandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <string>

// An installed folder that the registry names, without a database in it.
class Installation
{
public:
    Installation();

    std::wstring DatabasePath() const { return m_folder.File(EventLog::DatabaseFileName); }

    // The database, made when it is missing.
    EventLog::EventDatabase Database() const { return EventLog::EventDatabase::Create(DatabasePath()); }

    const RegistrySandbox m_registry;
    const TemporaryFolder m_folder;
};
