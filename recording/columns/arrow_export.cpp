#include "columns/arrow_export.hpp"

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>
#include <vector>

namespace ast::recording {

namespace {

// What is handed over as a tree of structs, whose parts may be taken out of it and released one by one: it lives as
// long as any of them.
template <typename Struct>
class Exported {
public:
    virtual ~Exported() = default;
    Exported(const Exported &) = delete;
    Exported &operator=(const Exported &) = delete;

protected:
    explicit Exported(size_t nodes) : nodes_(nodes), children_(nodes) {}

    Struct &add() { return nodes_[used_nodes_++]; }

    // The children of a struct, for which there is room.
    Struct **add_children(size_t count) {
        used_children_ += count;
        return children_.data() + used_children_ - count;
    }

    void hold(Struct &node) {
        node.release = release;
        node.private_data = this;
        ++references_;
    }

private:
    static void release(Struct *node) {
        const auto release_part = [](Struct *part) {
            if (part && part->release) part->release(part);
        };
        std::for_each(node->children, node->children + node->n_children, release_part);
        release_part(node->dictionary);
        auto *const owner = static_cast<Exported *>(node->private_data);
        node->release = nullptr;
        if (--owner->references_ == 0) delete owner;
    }

    std::vector<Struct> nodes_;
    std::vector<Struct *> children_;
    size_t used_nodes_ = 0;
    size_t used_children_ = 0;
    std::atomic<size_t> references_ = 0;
};

// Columns, their dictionaries and their children.
size_t nodes_of(std::span<const ColumnHead> heads) {
    size_t count = heads.size();
    for (const ColumnHead &head : heads) count += (head.type == ColumnType::text) + nodes_of(head.children);
    return count;
}

// ---- Schemas ----

constexpr const char *kStructure = "+s";
constexpr const char *kText = "u";

const char *format_of(ColumnType type) {
    switch (type) {
    case ColumnType::boolean:
        return "b";
    case ColumnType::int32:
    case ColumnType::text: // by its code
        return "i";
    case ColumnType::int64:
        return "l";
    case ColumnType::float64:
        return "g";
    case ColumnType::time:
        return "tsn:UTC";
    case ColumnType::list:
        return "+l";
    default:
        return kStructure;
    }
}

// Keys and values, each behind its length, as the machine has numbers.
std::string metadata_of(const ColumnHead &head) {
    const auto put_number = [](std::string &out, size_t number) {
        const auto value = static_cast<int32_t>(number);
        out.append(reinterpret_cast<const char *>(&value), sizeof value);
    };
    const auto told = told_of(head);
    std::string metadata;
    if (told.empty()) return metadata;
    put_number(metadata, told.size());
    for (const auto &[key, value] : told)
        for (const std::string_view text : {key, value}) {
            put_number(metadata, text.size());
            metadata += text;
        }
    return metadata;
}

class ExportedSchema : public Exported<ArrowSchema> {
public:
    explicit ExportedSchema(std::shared_ptr<const Table> table)
        : Exported(nodes_of(table->heads)), table_(std::move(table)) {
        metadata_.reserve(nodes_of(table_->heads));
    }

    void put(ArrowSchema &schema) {
        schema = {.format = kStructure, .name = ""};
        put_children(schema, table_->heads);
    }

private:
    void put_children(ArrowSchema &schema, std::span<const ColumnHead> heads) {
        schema.n_children = static_cast<int64_t>(heads.size());
        schema.children = add_children(heads.size());
        for (size_t i = 0; i < heads.size(); ++i) schema.children[i] = put(heads[i]);
        hold(schema);
    }

    ArrowSchema *put(const ColumnHead &head) {
        ArrowSchema &schema = add();
        const std::string &metadata = metadata_.emplace_back(metadata_of(head));
        schema = {.format = format_of(head.type),
                  .name = head.name.c_str(),
                  .metadata = metadata.empty() ? nullptr : metadata.data(),
                  .flags = ARROW_FLAG_NULLABLE};
        if (head.type == ColumnType::text) {
            schema.dictionary = &add();
            *schema.dictionary = {.format = kText, .name = ""};
            hold(*schema.dictionary);
        }
        put_children(schema, head.children);
        return &schema;
    }

    std::shared_ptr<const Table> table_;
    std::vector<std::string> metadata_; // with room for that of each column
};

// ---- Batches ----

size_t most_rows(const std::vector<Column> &columns) {
    size_t most = 0;
    for (const Column &column : columns)
        most = std::max({most, static_cast<size_t>(column.size()), most_rows(column.children())});
    return most;
}

class ExportedBatch : public Exported<ArrowArray> {
public:
    ExportedBatch(std::shared_ptr<const Table> table, Batch batch)
        : Exported(nodes_of(table->heads)),
          table_(std::move(table)),
          batch_(std::move(batch)),
          zeros_((most_rows(batch_.columns) + 1) * sizeof(int64_t)) {
        buffers_.reserve(1 + kMostBuffers * nodes_of(table_->heads));
    }

    void put(ArrowArray &array) {
        array = {.length = static_cast<int64_t>(batch_.rows)};
        put_buffers(array, {nullptr});
        put_children(array, batch_.columns);
    }

private:
    static constexpr size_t kMostBuffers = 3; // of a column

    void put_buffers(ArrowArray &array, std::initializer_list<const void *> buffers) {
        array.n_buffers = static_cast<int64_t>(buffers.size());
        array.buffers = buffers_.data() + buffers_.size();
        buffers_.insert(buffers_.end(), buffers);
    }

    void put_children(ArrowArray &array, const std::vector<Column> &columns) {
        array.n_children = static_cast<int64_t>(columns.size());
        array.children = add_children(columns.size());
        for (size_t i = 0; i < columns.size(); ++i) array.children[i] = put(columns[i]);
        hold(array);
    }

    ArrowArray *put(const Column &column) {
        const ColumnType type = column.head().type;
        const auto buffer = [&](const std::vector<uint8_t> &octets) {
            return column.is_void() ? zeros_.data() : octets.data();
        };
        ArrowArray &array = add();
        array = {.length = static_cast<int64_t>(column.size()), .null_count = static_cast<int64_t>(column.nulls())};
        const uint8_t *const validity = column.nulls() == 0 ? nullptr : buffer(column.validity().octets());
        if (type == ColumnType::structure)
            put_buffers(array, {validity});
        else
            put_buffers(array,
                        {validity, buffer(type == ColumnType::boolean ? column.flags().octets() : column.values())});
        if (type == ColumnType::text) {
            const Dictionary &dictionary = column.dictionary();
            array.dictionary = &add();
            *array.dictionary = {.length = dictionary.size()};
            put_buffers(*array.dictionary, {nullptr, dictionary.ends().data(), dictionary.characters().data()});
            hold(*array.dictionary);
        }
        put_children(array, column.children());
        return &array;
    }

    std::shared_ptr<const Table> table_; // whose heads the columns have
    Batch batch_;
    std::vector<uint8_t> zeros_;        // for all buffers of columns without values
    std::vector<const void *> buffers_; // with room for those of each column
};

} // namespace

void export_schema(std::shared_ptr<const Table> table, ArrowSchema &schema) {
    auto exported = std::make_unique<ExportedSchema>(std::move(table));
    exported->put(schema);
    exported.release(); // which its last part deletes
}

void export_batch(std::shared_ptr<const Table> table, Batch batch, ArrowArray &array) {
    auto exported = std::make_unique<ExportedBatch>(std::move(table), std::move(batch));
    exported->put(array);
    exported.release();
}

} // namespace ast::recording
