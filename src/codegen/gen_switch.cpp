#include "codegen/gen.h"

#include "semantic/context.h"
#include "syntax/tree_statements.h"

#include <algorithm>
#include <vector>

namespace tarn {

namespace {

/// A `tableswitch` or `lookupswitch` whose offsets are filled in while its cases are generated.
class SwitchTable {
public:
    explicit SwitchTable(Trees cases);

    /// Emits the instruction, with open offsets.
    void emit();
    /// The current place is where that case begins.
    void enterCase(const Case* tree);
    /// The current place is where all go that no case has taken.
    void enterDefault();
    [[nodiscard]] bool hasDefault() const { return hasDefault_; }
    /// Fills in what is still open; the default must have been entered.
    void complete();

private:
    struct Entry {
        std::int32_t label;
        int offset;
    };

    static constexpr int OPEN = -1;

    [[nodiscard]] bool prefersTable() const;
    [[nodiscard]] std::int64_t slots() const { return std::int64_t{high_} - low_ + 1; }
    /// Where the offset or pair of that number stands, behind the default offset and the two ints or one int of bounds.
    [[nodiscard]] int slotPc(std::int64_t number) const { return base_ + static_cast<int>(4 * (number + 3)); }
    [[nodiscard]] int pairPc(std::size_t number) const { return base_ + static_cast<int>(8 * (number + 1)); }

    std::vector<Entry> entries_;
    std::int32_t low_ = 0;
    std::int32_t high_ = 0;
    bool hasDefault_ = false;
    bool isTable_ = false;
    int start_ = 0; ///< pc of the instruction, which offsets count from
    int base_ = 0;  ///< pc of the default offset
};

SwitchTable::SwitchTable(Trees cases) {
    entries_.reserve(cases.size());
    for (const Tree* tree : cases) {
        const auto* one = static_cast<const Case*>(tree);
        if (one->pat == nullptr)
            hasDefault_ = true;
        else
            entries_.push_back({one->value, OPEN});
    }
    std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.label < b.label; });
    low_ = entries_.front().label;
    high_ = entries_.back().label;
    isTable_ = prefersTable();
}

/// Weighs words of code against steps of the search, with one step worth three words.
bool SwitchTable::prefersTable() const {
    auto count = static_cast<std::int64_t>(entries_.size());
    std::int64_t tableSpace = 4 + slots();
    std::int64_t tableTime = 3;
    std::int64_t lookupSpace = 3 + 2 * count;
    std::int64_t lookupTime = count;
    return lookupSpace + 3 * lookupTime >= tableSpace + 3 * tableTime;
}

void SwitchTable::emit() {
    Emitter& out = emitter();
    start_ = out.curPc();
    out.emitop(isTable_ ? op::TABLESWITCH : op::LOOKUPSWITCH);
    out.align(4);
    base_ = out.curPc();
    out.emit4(OPEN);
    std::int64_t openWords = 0;
    if (isTable_) {
        out.emit4(low_);
        out.emit4(high_);
        openWords = slots();
    } else {
        out.emit4(static_cast<int>(entries_.size()));
        openWords = 2 * static_cast<std::int64_t>(entries_.size());
    }
    for (std::int64_t i = 0; i < openWords; i++) out.emit4(OPEN);
}

void SwitchTable::enterCase(const Case* tree) {
    if (tree->pat == nullptr) {
        enterDefault();
        return;
    }
    Emitter& out = emitter();
    int offset = out.curPc() - start_;
    if (isTable_) {
        out.put4(slotPc(std::int64_t{tree->value} - low_), offset);
        return;
    }
    auto entry = std::lower_bound(entries_.begin(), entries_.end(), tree->value,
                                  [](const Entry& a, std::int32_t label) { return a.label < label; });
    entry->offset = offset;
}

void SwitchTable::enterDefault() {
    emitter().put4(base_, emitter().curPc() - start_);
}

void SwitchTable::complete() {
    Emitter& out = emitter();
    if (isTable_) {
        int defaultOffset = out.get4(base_);
        for (std::int64_t i = 0; i < slots(); i++)
            if (out.get4(slotPc(i)) == OPEN) out.put4(slotPc(i), defaultOffset);
        return;
    }
    for (std::size_t i = 0; i < entries_.size(); i++) {
        out.put4(pairPc(i), entries_[i].label);
        out.put4(pairPc(i) + 4, entries_[i].offset);
    }
}

/// A place that is reached both from above, if at all, and from where these sets held.
void joinHere(const Bits& unset, const Bits& set) {
    Emitter& out = emitter();
    Bits joinedUnset = unset;
    Bits joinedSet = set;
    joinedUnset.orSet(out.maybeUnset);
    joinedSet.orSet(out.maybeSet);
    out.entryPoint(0, joinedUnset, joinedSet);
}

} // namespace

Item* Case::gen() {
    codegen::genStatements(stats);
    return items::voidItem();
}

Item* Switch::gen() {
    Emitter& out = emitter();
    exit = cont = nullptr;
    out.statBegin(pos);
    if (cases.empty()) {
        selector->genLoad();
        items::stackItem()->drop(context().intType);
        return items::voidItem();
    }
    if (cases.size() == 1 && static_cast<const Case*>(cases.front())->pat == nullptr) {
        selector->gen()->discard(selector->type);
        cases.front()->genDrop();
        out.resolve(exit);
        return items::voidItem();
    }
    selector->genLoad();
    if (!out.alive) return items::voidItem();

    SwitchTable table(cases);
    Bits* startUnset = out.dupUnset();
    const Bits* startSet = out.dupSet();
    table.emit();
    out.markDead();
    int first = out.code->nextVar;
    for (Tree* tree : cases) {
        table.enterCase(static_cast<const Case*>(tree));
        joinHere(*startUnset, *startSet);
        tree->genDrop();
        // What this case declares is in scope in the next ones, without a value.
        for (int i = first; i < out.code->nextVar; i++) startUnset->incl(i);
    }
    out.resolve(exit);
    if (!table.hasDefault()) {
        table.enterDefault();
        joinHere(*startUnset, *startSet);
    }
    table.complete();
    return items::voidItem();
}

} // namespace tarn
