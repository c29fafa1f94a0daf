#include "db/page_seal.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <unordered_set>
#include <vector>

namespace tallmar::db_detail {

namespace {

static_assert(std::endian::native == std::endian::little, "seals are little-endian");

// Places in page 1, all numbers of SQLite's own big-endian.
constexpr std::size_t kHeadSize = 100;
constexpr std::size_t kPageSizeAt = 16, kReservedAt = 20, kChangeCounterAt = 24, kPageCountAt = 28, kFirstFreeAt = 32,
                      kValidForAt = 92;
// The counter in the seal of page 1: pages have been written without a seal.
constexpr std::uint32_t kNotSealed = 0xffffffff;
// The first byte of a page of an index: inner, leaf.
constexpr unsigned char kIndexPages[] = {0x02, 0x0a};

std::uint32_t Number_At(std::span<const unsigned char> page, std::size_t place) {
    return std::uint32_t{page[place]} << 24 | std::uint32_t{page[place + 1]} << 16 |
           std::uint32_t{page[place + 2]} << 8 | std::uint32_t{page[place + 3]};
}

template <class Number>
Number Read_Seal(std::span<const unsigned char> page, std::size_t fromEnd) {
    Number number{};
    std::memcpy(&number, page.data() + page.size() - fromEnd, sizeof(number));
    return number;
}

template <class Number>
void Write_Seal(std::span<unsigned char> page, std::size_t fromEnd, Number number) {
    std::memcpy(page.data() + page.size() - fromEnd, &number, sizeof(number));
}

// Each step can be undone: a change within one word of eight bytes never goes unseen. Never 0.
std::uint64_t Checksum(std::span<const unsigned char> page, std::uint64_t seed) {
    constexpr std::uint64_t kFactor = 0x9e3779b97f4a7c15;
    std::uint64_t sum = ~seed;
    for (std::size_t at = 0; at + kSealSize < page.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t word = 0;
        std::memcpy(&word, page.data() + at, sizeof(word));
        sum = (sum ^ word) * kFactor;
        sum ^= sum >> 32;
    }
    return sum == 0 ? 1 : sum;
}

// Of page 1, together with the counter that its seal holds.
std::uint32_t First_Checksum(std::span<const unsigned char> page, std::uint32_t counter) {
    const std::uint64_t sum = Checksum(page, std::uint64_t{counter} << 32 | 1);
    const auto folded = static_cast<std::uint32_t>(sum ^ sum >> 32);
    return folded == 0 ? 1 : folded;
}

void Seal_First_Page(std::span<unsigned char> page) {
    const std::uint32_t counter = Number_At(page, kChangeCounterAt);
    const auto sealed = Read_Seal<std::uint32_t>(page, 4);
    // 0: the whole file is written again. Else its last writer must have been one that seals.
    const bool counts = sealed == 0 || sealed == counter || sealed + 1 == counter;
    Write_Seal(page, 4, counts ? counter : kNotSealed);
    Write_Seal(page, 8, counts ? First_Checksum(page, counter) : 0);
}

class SealReader {
  public:
    SealReader(sqlite3_file* file, std::uint32_t pageSize, std::uint32_t pages)
        : file_(file), pages_(pages), page_(pageSize) {}

    // False where it cannot be read whole.
    bool Read(std::uint32_t number) {
        const auto at = static_cast<sqlite3_int64>(number - 1) * static_cast<sqlite3_int64>(page_.size());
        return file_->pMethods->xRead(file_, page_.data(), static_cast<int>(page_.size()), at) == SQLITE_OK;
    }
    std::span<const unsigned char> Page() const { return page_; }
    bool Is_Sealed_Well(std::uint32_t number) const {
        const auto seal = Read_Seal<std::uint64_t>(page_, 8);
        return seal == 0 || seal == Checksum(page_, number);
    }
    bool Is_Index() const { return std::ranges::find(kIndexPages, page_[0]) != std::end(kIndexPages); }

    // The leaves of the list of free pages, which keep what they held before; the pages of the list itself are sealed.
    std::unordered_set<std::uint32_t> Free_Pages(std::uint32_t trunk) {
        std::unordered_set<std::uint32_t> leaves;
        for (std::uint32_t i = 0; trunk > 1 && trunk <= pages_ && i < pages_ && Read(trunk); ++i) {
            if (!Is_Sealed_Well(trunk)) break;
            const std::size_t most = page_.size() / 4 - 2;
            const std::size_t count = std::min<std::size_t>(Number_At(page_, 4), most);
            for (std::size_t leaf = 0; leaf < count; ++leaf) leaves.insert(Number_At(page_, 8 + 4 * leaf));
            trunk = Number_At(page_, 0);
        }
        return leaves;
    }

  private:
    sqlite3_file* file_;
    std::uint32_t pages_;
    std::vector<unsigned char> page_;
};

enum class First : std::uint8_t { Sealed, NotSealed, Broken };

First Check_First_Page(std::span<const unsigned char> page) {
    const auto sealed = Read_Seal<std::uint32_t>(page, 4);
    const auto sum = Read_Seal<std::uint32_t>(page, 8);
    if (sum == 0) return First::NotSealed;
    const std::uint32_t counter = Number_At(page, kChangeCounterAt);
    if (sealed == counter && sum == First_Checksum(page, sealed)) return First::Sealed;
    // A program that does not seal has moved both counters on.
    const bool otherWriter = sealed != counter && counter == Number_At(page, kValidForAt);
    return otherWriter && sum != First_Checksum(page, sealed) ? First::NotSealed : First::Broken;
}

// Behind its last page there may be what a change that made the file shorter has not cut off.
std::uint32_t Pages_Of(std::span<const unsigned char> head, std::uint32_t inFile) {
    const std::uint32_t counted = Number_At(head, kPageCountAt);
    const bool holds = counted > 0 && Number_At(head, kChangeCounterAt) == Number_At(head, kValidForAt);
    return holds ? std::min(counted, inFile) : inFile;
}

}  // namespace

std::uint32_t Sealed_Page_Size(std::span<const unsigned char> head) {
    if (head.size() < kHeadSize || head[kReservedAt] != kSealSize) return 0;
    const std::uint32_t size = std::uint32_t{head[kPageSizeAt]} << 8 | head[kPageSizeAt + 1];
    return size == 1 ? 65536 : size;
}

void Seal_Page(std::span<unsigned char> page, std::uint32_t number) {
    if (number == 1) return Seal_First_Page(page);
    Write_Seal(page, 8, Checksum(page, number));
}

void Seal_File(std::span<unsigned char> file) {
    const std::uint32_t pageSize = Sealed_Page_Size(file);
    if (pageSize == 0) return;
    Write_Seal(file.first(pageSize), 4, std::uint32_t{0});
    for (std::size_t at = 0; at + pageSize <= file.size(); at += pageSize) {
        Seal_Page(file.subspan(at, pageSize), static_cast<std::uint32_t>(at / pageSize) + 1);
    }
}

Seals Check_Seals(sqlite3* handle) {
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    std::vector<unsigned char> head(kHeadSize);
    if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || file == nullptr ||
        file->pMethods == nullptr || file->pMethods->xFileSize(file, &size) != SQLITE_OK ||
        file->pMethods->xRead(file, head.data(), static_cast<int>(head.size()), 0) != SQLITE_OK) {
        return Seals::NotRead;
    }
    const std::uint32_t pageSize = Sealed_Page_Size(head);
    if (pageSize == 0) return Seals::Whole;
    const std::uint32_t pages = Pages_Of(head, static_cast<std::uint32_t>(size / pageSize));
    SealReader reader(file, pageSize, pages);
    if (!reader.Read(1)) return Seals::NotRead;
    const First first = Check_First_Page(reader.Page());
    if (first != First::Sealed) return first == First::NotSealed ? Seals::Whole : Seals::Broken;

    const auto freePages = reader.Free_Pages(Number_At(head, kFirstFreeAt));
    Seals found = Seals::Whole;
    for (std::uint32_t number = 2; number <= pages; ++number) {
        if (!reader.Read(number)) return Seals::NotRead;
        if (reader.Is_Sealed_Well(number) || freePages.contains(number)) continue;
        if (!reader.Is_Index()) return Seals::Broken;
        found = Seals::IndexBroken;
    }
    return found;
}

}  // namespace tallmar::db_detail
