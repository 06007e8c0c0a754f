#include "tests/support/Picture.h"

#include "tests/support/PngFile.h"

#include <algorithm>

namespace
{

using Path = std::filesystem::path;

constexpr COLORREF Different = RGB(255, 0, 0);

// The kept picture in pale grey, with the pixels that differ in red.
struct Difference
{
    Picture map;
    int count = 0;
    RECT place{}; // around the pixels that differ

    explicit Difference(int width, int height) : map(width, height, Different) {}
};

COLORREF Pale(COLORREF colour)
{
    const int grey = (GetRValue(colour) * 30 + GetGValue(colour) * 59 + GetBValue(colour) * 11) / 100;
    const int pale = 170 + grey / 3;
    return RGB(pale, pale, pale);
}

bool IsSame(const Picture& one, const Picture& other, int x, int y)
{
    return x < std::min(one.Width(), other.Width()) && y < std::min(one.Height(), other.Height()) &&
           one.At(x, y) == other.At(x, y);
}

Difference Compare(const Picture& kept, const Picture& actual)
{
    Difference difference(std::max(kept.Width(), actual.Width()), std::max(kept.Height(), actual.Height()));
    for (int y = 0; y < difference.map.Height(); ++y)
    {
        for (int x = 0; x < difference.map.Width(); ++x)
        {
            if (IsSame(kept, actual, x, y))
            {
                difference.map.Set(x, y, Pale(kept.At(x, y)));
                continue;
            }
            ++difference.count;
            const RECT pixel{x, y, x + 1, y + 1};
            UnionRect(&difference.place, &difference.place, &pixel);
        }
    }
    return difference;
}

// Where the pictures of the running test lie below the folder.
Path InSuite(const char* folder, const std::string& file)
{
    return Path(folder) / testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() / file;
}

testing::AssertionResult Failed(const Picture& picture, const std::string& name)
{
    const Path actual = InSuite(KESTRIX_PICTURE_OUTPUT, name + ".actual.png");
    create_directories(actual.parent_path());
    WritePng(actual, picture);
    return testing::AssertionFailure()
           << "Look at it with tools/update-pictures, which takes it over when it is right. The picture: "
           << actual.generic_string() << "\n";
}

} // namespace

testing::AssertionResult IsKeptPicture(const Picture& picture, const std::string& name)
{
    const Path map = InSuite(KESTRIX_PICTURE_OUTPUT, name + ".difference.png");
    remove(map);
    remove(InSuite(KESTRIX_PICTURE_OUTPUT, name + ".actual.png"));
    const Path path = InSuite(KESTRIX_KEPT_PICTURES, name + ".png");
    if (!exists(path))
    {
        return Failed(picture, name) << "No picture is kept as " << path.generic_string();
    }
    const Picture kept = ReadPng(path);
    if (kept == picture)
    {
        return testing::AssertionSuccess();
    }
    const Difference difference = Compare(kept, picture);
    auto failed = Failed(picture, name);
    WritePng(map, difference.map);
    const RECT& at = difference.place;
    return failed << difference.count << " pixels differ from " << path.generic_string() << ", within " << at.left
                  << ", " << at.top << " to " << at.right << ", " << at.bottom << "; it has " << kept.Width() << " by "
                  << kept.Height() << " pixels, the new one " << picture.Width() << " by " << picture.Height();
}
