#pragma once

#include "Interface/CalItemDescriptor.h"

// A calibration item served by one object of type `Item`, which has the
// four movements and tells whether a file holds its data
// (IsSectionInFile). Whether the target has the item is the descriptor's
// `isSupported`.
template <typename Item>
class CObjectCalItem : public CCalItemDescriptor {
public:
    using CCalItemDescriptor::CCalItemDescriptor;

    bool IsInFile(TIniFile *file) override { return m_object.IsSectionInFile(file); }
    int Move(ECalDataMovement movement, TIniFile *file, QString &errorMessage) override
    {
        return MoveItem(m_object, movement, file, errorMessage);
    }

    Item &Object() { return m_object; }

protected:
    Item m_object;
};
