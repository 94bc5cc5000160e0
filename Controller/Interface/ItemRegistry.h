#pragma once

#include <QMap>
#include <QString>

#include <algorithm>
#include <memory>
#include <vector>

// The items of a controller, owned, in the order they were added, and found
// by id or by name. A name the registry does not know stands for id 0, as
// the item tables have it.
template <typename Descriptor>
class CItemRegistry {
public:
    // Adds `item` after the others; an item of the same id leaves and is given back.
    std::unique_ptr<Descriptor> Add(std::unique_ptr<Descriptor> item)
    {
        std::unique_ptr<Descriptor> replaced = Take(item->Id());
        m_ids.insert(item->Name(), item->Id());
        m_items.push_back(std::move(item));
        return replaced;
    }

    // Takes the item of `id` away, if there is one.
    std::unique_ptr<Descriptor> Take(int id)
    {
        const auto found = std::find_if(m_items.begin(), m_items.end(),
                                        [id](const std::unique_ptr<Descriptor> &item) { return item->Id() == id; });
        if (found == m_items.end())
            return nullptr;
        std::unique_ptr<Descriptor> taken = std::move(*found);
        m_items.erase(found);
        m_ids.remove(taken->Name());
        return taken;
    }

    void Clear()
    {
        m_items.clear();
        m_ids.clear();
    }

    int IdOf(const QString &name) const { return m_ids.value(name, 0); }

    Descriptor *ById(int id) const
    {
        for (const auto &item : m_items) {
            if (item->Id() == id)
                return item.get();
        }
        return nullptr;
    }

    Descriptor *ByName(const QString &name) const { return ById(IdOf(name)); }

    const std::vector<std::unique_ptr<Descriptor>> &Items() const { return m_items; }

private:
    std::vector<std::unique_ptr<Descriptor>> m_items;
    QMap<QString, int> m_ids;
};
