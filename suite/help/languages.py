"""What the help file of a language needs beside its topics."""

import collections

ENGLISH = "en-US"

# The help viewer reads contents, index and titles in the code page that belongs to `identifier`; the pages say theirs.
#   codec        Python's name of the code page
#   charset      its name in a page
#   identifier   the language as the help compiler takes it
#   title        of the window
#   search       whether the help compiler finds the words of its text: it knows the letters of ASCII alone
#   answers      the captions of a message box, which come from the system
Language = collections.namedtuple("Language", "codec charset identifier title search answers")

LANGUAGES = {
    ENGLISH: Language("ascii", "windows-1252", "0x409 English (United States)", "Kestrix Help", True,
                      {"Yes", "No"}),
    "de-DE": Language("cp1252", "windows-1252", "0x407 German (Germany)", "Kestrix-Hilfe", False,
                      {"Ja", "Nein"}),
    "ja-JP": Language("cp932", "shift_jis", "0x411 Japanese", "Kestrix ヘルプ", False,
                      {"はい", "いいえ"}),
    "zh-CN": Language("cp936", "gb2312", "0x804 Chinese (Simplified, PRC)", "Kestrix 帮助", False,
                      {"是", "否"}),
}
