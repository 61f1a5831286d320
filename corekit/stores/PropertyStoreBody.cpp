#include "corekit/stores/PropertyStoreBody.h"

namespace corekit::detail {

PropertyStoreBody& PropertyStoreRef::Own()
{
    if (!m_body) {
        m_body = new PropertyStoreBody;
    } else if (m_body->IsShared()) {
        *this = PropertyStoreRef(new PropertyStoreBody(*m_body));
    }
    return *m_body;
}

// Takes a tree down level by level, for nesting may be deeper than the stack.
void PropertyStoreBody::Free(PropertyStoreBody* body)
{
    std::vector<PropertyStoreRef> below;
    const auto collect = [&below](PropertyStoreBody& parent) {
        for (PropertyStoreChild& child : parent.stores.All()) {
            PropertyStoreBody* nested = child.store.Get();
            if (!nested || nested->stores.Count() == 0) continue;
            try {
                below.push_back(std::move(child.store));
            } catch (const std::bad_alloc&) {
                return; // the rest goes down through its own destructors
            }
        }
    };
    collect(*body);
    delete body;
    while (!below.empty()) {
        PropertyStoreRef next = std::move(below.back());
        below.pop_back();
        if (!next->IsShared()) collect(*next.Get());
    }
}

} // namespace corekit::detail
