#include "make/graph.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tarn {
namespace {

TEST(Graph, NodesKnowTheirPartsOfTheName) {
    Graph graph;
    struct Row {
        const char* name;
        const char* package;
        const char* simple;
    };
    for (const Row& row : {Row{"A", ".", "A"}, Row{"a.B", "a", "B"}, Row{"a.b.C$D", "a.b", "C$D"}}) {
        ClassNode& c = graph.classNode(Name::fromString(row.name));
        EXPECT_EQ(row.package, c.packageName->toString());
        EXPECT_EQ(row.simple, c.simpleName->toString());
        EXPECT_EQ(&c, &graph.classNode(c.name));
    }
    EXPECT_EQ("B.java", graph.sourceNode(Name::fromString("/x/a/B.java")).name->toString());
    EXPECT_EQ("B.java", graph.sourceNode(Name::fromString("B.java")).name->toString());
}

TEST(NodeTable, FindsReplacesAndDropsWhateverItsSize) {
    Arena arena;
    std::vector<DefRecord> records(300);
    for (std::size_t i = 0; i < records.size(); i++) records[i] = {Name::fromString("n" + std::to_string(i)), 1};
    for (std::size_t count : {0, 1, 7, 8, 9, 16, 17, 300}) {
        NodeTable<DefRecord> table;
        for (std::size_t i = 0; i < count; i++) table.put(arena, &records[i]);
        for (std::size_t i = 0; i < records.size(); i++)
            EXPECT_EQ(i < count ? &records[i] : nullptr, table.find(records[i].name));
        if (count == 0) continue;
        DefRecord other = {records[count / 2].name, 2};
        table.put(arena, &other);
        EXPECT_EQ(count, table.size());
        EXPECT_EQ(&other, table.nodes()[count / 2]) << "it takes the place of the old one";
        table.keepIf([&](const DefRecord* record) { return record != &records[0]; });
        EXPECT_EQ(count == 1 ? 1 : count - 1, table.size());
        EXPECT_EQ(count == 1 ? &other : nullptr, table.find(records[0].name));
        EXPECT_EQ(&other, table.find(other.name));
    }
}

} // namespace
} // namespace tarn
