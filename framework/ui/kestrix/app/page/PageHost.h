#pragma once

class CKestrixDlg;
class IDBManagerProvider;

// What a viewer page needs of the program that shows it.
class CPageHost
{
public:
    // Takes note of the page, which stands from now on, and lends it the database's provider; null when there is none.
    virtual IDBManagerProvider* TakePage(CKestrixDlg& page) = 0;

protected:
    ~CPageHost() = default;
};
