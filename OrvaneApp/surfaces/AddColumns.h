#pragma once

/// Where the columns of the Add tab stand, so that its head, its build rows and the rows already
/// on the machine line up.
struct AddColumns
{
    static constexpr int spacing = 10;
    static constexpr int tag = 64;
    static constexpr int mode = 100;
    static constexpr int field = 124;
    static constexpr int dns = 150;
    static constexpr int remove = 30;
    /// An issue stands under the name: past the tag and its gap.
    static constexpr int issueInset = tag + spacing;

    int tagX = 0;
    int nameX = 0;
    int nameWidth = 0;
    int modeX = 0;
    int addressX = 0;
    int maskX = 0;
    int routerX = 0;
    int dnsX = 0;
    int removeX = 0;
    int width = 0;

    [[nodiscard]] static constexpr AddColumns of(int nameColumn)
    {
        AddColumns columns;
        int x = 0;
        const auto next = [&x](int span) {
            const int at = x;
            x += span + spacing;
            return at;
        };
        columns.tagX = next(tag);
        columns.nameWidth = nameColumn;
        columns.nameX = next(nameColumn);
        columns.modeX = next(mode);
        columns.addressX = next(field);
        columns.maskX = next(field);
        columns.routerX = next(field);
        columns.dnsX = next(dns);
        columns.removeX = next(remove);
        columns.width = x - spacing;
        return columns;
    }
};

static_assert(AddColumns::of(210).nameX == AddColumns::issueInset);
