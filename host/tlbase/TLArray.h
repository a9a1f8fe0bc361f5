#pragma once

#include <vector>

namespace TMObjects {

// The framework's array: a vector with the few members the tools call.
template <class T>
class TLArray : public std::vector<T> {
public:
    using std::vector<T>::vector;
    int GetSize() const { return int(this->size()); }
    void Add(const T& v) { this->push_back(v); }
    const T& GetAt(int i) const { return this->at(std::size_t(i)); }
    T& GetAt(int i) { return this->at(std::size_t(i)); }
    void RemoveAll() { this->clear(); }
};

}  // namespace TMObjects
