#include "db/plan_cache.h"

#include <algorithm>

#include "common/text.h"

namespace tallmar::db_detail {

std::shared_ptr<CachedPlan> PlanCache::Find(std::string_view shape) {
    if (!entries_.empty() && entries_.front().shape == shape) return entries_.front().plan;
    const auto found = byShape_.find(shape);
    if (found == byShape_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return found->second->plan;
}

void PlanCache::Put(std::string_view shape, std::shared_ptr<CachedPlan> plan) {
    entries_.push_front({std::string(shape), To_Upper(shape), std::move(plan)});
    byShape_[entries_.front().shape] = entries_.begin();
    Trim_To_Capacity();
}

// A statement that speaks of a table holds its name somewhere; one that holds it by chance is only compiled again.
void PlanCache::Forget(std::string_view table) {
    const std::string name = To_Upper(table);
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        if (entry->folded.find(name) == std::string::npos) {
            ++entry;
            continue;
        }
        byShape_.erase(entry->shape);
        entry = entries_.erase(entry);
    }
}

void PlanCache::Clear() {
    byShape_.clear();
    entries_.clear();
}

void PlanCache::Set_Capacity(std::size_t capacity) {
    capacity_ = std::max<std::size_t>(capacity, 1);
    Trim_To_Capacity();
}

void PlanCache::Trim_To_Capacity() {
    while (entries_.size() > capacity_) {
        byShape_.erase(entries_.back().shape);
        entries_.pop_back();
    }
}

}  // namespace tallmar::db_detail
