#include "FuzzMutate.h"

namespace TMObjects {

void FuzzMutate(std::string& bytes, const std::vector<std::string>& seeds, std::mt19937& random) {
    auto at = [&](std::size_t size) { return size ? random() % size : 0; };
    const int count = 1 + int(random() % 8);
    for (int i = 0; i < count; ++i) {
        switch (random() % 7) {
            case 0:
                if (!bytes.empty()) bytes[at(bytes.size())] ^= char(1u << (random() % 8));
                break;
            case 1: {
                static const char edges[] = {0, char(0xFF), 0x7F, char(0x80), 0x01, '\n', '"'};
                if (!bytes.empty()) bytes[at(bytes.size())] = edges[random() % sizeof edges];
                break;
            }
            case 2: {
                std::string noise(1 + random() % 16, '\0');
                for (char& c : noise) c = char(random());
                bytes.insert(at(bytes.size() + 1), noise);
                break;
            }
            case 3:
                if (!bytes.empty()) bytes.erase(at(bytes.size()), 1 + random() % 64);
                break;
            case 4:
                if (!bytes.empty()) {
                    const std::size_t from = at(bytes.size());
                    bytes.insert(at(bytes.size()), bytes.substr(from, 1 + random() % 64));
                }
                break;
            case 5: {
                const std::string& other = seeds[random() % seeds.size()];
                if (!other.empty())
                    bytes.replace(at(bytes.size()), random() % 256,
                                  other.substr(at(other.size()), random() % 256));
                break;
            }
            default:
                bytes.resize(at(bytes.size() + 1));
        }
    }
}

}  // namespace TMObjects
