/// A range of slots of a chassis.
#ifndef QUORIXBIZMODEL_SLOTRANGE_H
#define QUORIXBIZMODEL_SLOTRANGE_H

namespace Quorix::BizModel {

/// Slots from a start, counted from 0, up to and without start plus count.
struct SlotRange {
    int start;
    int count;

    [[nodiscard]] bool contains(int position) const { return position >= start && position < start + count; }
    /// Place of a slot in the range, counted from 1.
    [[nodiscard]] int place(int position) const { return position - start + 1; }
};

} // namespace Quorix::BizModel

#endif
