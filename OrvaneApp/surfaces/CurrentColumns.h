#pragma once

/// Where the columns of the Current tab stand, so that the heads, the adapter rows and the VLAN
/// rows line up. Adapters have no parent: their name takes its room and the gap beside it.
struct CurrentColumns
{
    static constexpr int spacing = 10;
    static constexpr int tick = 22;
    static constexpr int device = 64;
    static constexpr int parent = 122;
    static constexpr int mode = 100;
    static constexpr int field = 124;
    static constexpr int ipv6 = 140;
    static constexpr int on = 30;
    static constexpr int save = 58;
    static constexpr int more = 70;
    /// The parent column and its gap, which an adapter's name takes.
    static constexpr int adapterExtra = parent + spacing;
    /// The one button of a VLAN with no service, in place of the mode, the three fields, IPv6
    /// and the switch.
    static constexpr int addButton = mode + 3 * field + ipv6 + on + 5 * spacing;
    /// "Save all…" lines up with the save cell and "More…".
    static constexpr int saveAll = save + spacing + more;
    /// Everything but the name: twelve columns, eleven gaps.
    static constexpr int fixedWidth =
        tick + device + parent + mode + 3 * field + ipv6 + on + save + more + 11 * spacing;

    int tickX = 0;
    int deviceX = 0;
    int nameX = 0;
    int nameWidth = 0;
    /// Absent (-1) in an adapter row.
    int parentX = -1;
    int modeX = 0;
    int addressX = 0;
    int maskX = 0;
    int routerX = 0;
    int ipv6X = 0;
    int onX = 0;
    int saveX = 0;
    int moreX = 0;
    int width = 0;

    /// The columns for a name column of `nameColumn` points.
    [[nodiscard]] static constexpr CurrentColumns of(int nameColumn, bool vlan)
    {
        CurrentColumns columns;
        int x = 0;
        const auto next = [&x](int span) {
            const int at = x;
            x += span + spacing;
            return at;
        };
        columns.tickX = next(tick);
        columns.deviceX = next(device);
        columns.nameWidth = vlan ? nameColumn : nameColumn + adapterExtra;
        columns.nameX = next(columns.nameWidth);
        if (vlan)
            columns.parentX = next(parent);
        columns.modeX = next(mode);
        columns.addressX = next(field);
        columns.maskX = next(field);
        columns.routerX = next(field);
        columns.ipv6X = next(ipv6);
        columns.onX = next(on);
        columns.saveX = next(save);
        columns.moreX = next(more);
        columns.width = x - spacing;
        return columns;
    }
};

static_assert(CurrentColumns::fixedWidth == 1088);
static_assert(CurrentColumns::addButton == 692);
static_assert(CurrentColumns::of(210, true).width == 1088 + 210);
static_assert(CurrentColumns::of(210, false).width == 1088 + 210);
