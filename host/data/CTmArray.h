#pragma once

#include <vector>

namespace TMObjects {

// A plain growable array with the data library's accessors.
template <typename T>
class CTmArray {
public:
    int GetSize() const { return int(mItems.size()); }
    T GetAt(int index) const { return mItems[std::size_t(index)]; }
    void SetAt(int index, const T& value) { mItems[std::size_t(index)] = value; }
    int Add(const T& value) {
        mItems.push_back(value);
        return int(mItems.size()) - 1;
    }
    void RemoveAt(int index) { mItems.erase(mItems.begin() + index); }
    void RemoveAll() { mItems.clear(); }
    bool operator==(const CTmArray& other) const { return mItems == other.mItems; }

private:
    std::vector<T> mItems;
};

}  // namespace TMObjects
