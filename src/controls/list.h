#pragma once

#include "controls/control.h"
#include "controls/drag.h"
#include "platform/tree/color.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

class List;

struct ListColumn {
    std::string text;
    std::string key;
    int width = 0;
};

/// A row of a list: one text per column. The first is the row's text.
class ListRow {
public:
    const std::string& key() const { return key_; }
    const std::string& text() const { return cells_.front(); }
    /// Columns start at 0; "" when the row has no such cell.
    const std::string& cell(std::size_t column) const;
    const std::vector<std::string>& cells() const { return cells_; }
    void setCell(std::size_t column, std::string text);
    const std::string& image() const { return image_; }
    void setImage(std::string image);
    bool bold() const { return bold_; }
    void setBold(bool bold);
    const OptionalColor& foreColor() const { return foreColor_; }
    void setForeColor(OptionalColor color);
    bool selected() const { return selected_; }

private:
    friend class List;
    explicit ListRow(List& list) : list_(&list), cells_(1) {}
    List* list_;
    std::string key_;
    std::vector<std::string> cells_;
    std::string image_;
    OptionalColor foreColor_;
    bool bold_ = false;
    bool selected_ = false;
};

/// A list of rows in columns. The address of a row is stable until the row is removed.
class List : public Control {
public:
    enum class Selection { One, Many };

    List(Window& window, std::string name, Control* pane = nullptr, Selection selection = Selection::One)
        : Control(Kind::List, window, std::move(name), pane), selection_(selection) {}

    void addColumn(std::string text, int width, std::string key = {});
    void clearColumns();
    const std::vector<ListColumn>& columns() const { return columns_; }

    /// After the last row, or at `position` (from 0, in order of insertion). A Key that another row has is
    /// not assigned.
    ListRow& add(std::string text, std::string key = {});
    ListRow& insert(std::size_t position, std::string text, std::string key = {});
    void remove(ListRow& row);
    /// So many rows from this position on, in order of insertion.
    void remove(std::size_t position, std::size_t count);
    void clear();
    /// Null when no row has the Key; the empty Key is never found.
    ListRow* find(std::string_view key) const;
    std::size_t count() const { return rows_.size(); }
    /// In the order in which they were added.
    const std::vector<std::unique_ptr<ListRow>>& rows() const { return rows_; }
    /// In display order: sorted by the text of the sort column, without case, when the list is sorted. Rows
    /// with equal texts keep their order of insertion.
    const std::vector<ListRow*>& shown() const;
    /// Position among the displayed rows, from 1; 0 for none.
    int positionOf(const ListRow* row) const;

    bool sorted() const { return sorted_; }
    /// Column from 0.
    int sortKey() const { return sortKey_; }
    void setSorted(bool sorted, int sortKey);

    Selection selection() const { return selection_; }
    /// The selected row, or the last selected of several; null for none.
    ListRow* selected() const { return selected_; }
    /// Where the last range ends, and the next key starts; the selected row when there is no range.
    ListRow* rangeEnd() const { return rangeEnd_ != nullptr ? rangeEnd_ : selected_; }
    std::vector<ListRow*> selectedRows() const;
    /// Selects this row alone; null selects nothing.
    void select(ListRow* row);
    /// Selects these rows and no others, as if they were added to the selection in this order. In a list with
    /// single selection only the last one is selected.
    void selectAll(const std::vector<ListRow*>& rows);
    /// Adds the row to the selection or removes it.
    void toggle(ListRow& row);
    /// Selects the rows displayed from `from` to `to` and no others. `from` remains the last selected row, so
    /// that the next range also starts there. In a list with single selection only `to` is selected.
    void selectRange(ListRow& from, ListRow& to);

    /// What the tool tip of a row says; without it, or for an empty text, it repeats the cell.
    std::function<std::string(const ListRow& row)> toolTipOf;

    /// The text colour of the row is about to change.
    std::function<void(const ListRow& row)> beforeForeColor;

    std::function<void(int button, ListRow* row)> onMouseDown;
    std::function<void(int button, ListRow* row)> onMouseUp;
    std::function<void(ListRow& row)> onRowClick;
    /// The arrow keys reached a row; in place of `onRowClick`, for a list that acts on the press.
    std::function<void(ListRow& row)> onReached;
    std::function<void(ListRow& row)> onDoubleClick;
    /// Column from 0.
    std::function<void(std::size_t column)> onColumnClick;
    /// A drag of the selection starts; without a handler or a result it is refused.
    std::function<std::optional<DragData>()> onDragStart;
    std::function<void(const DragData&, ListRow* row)> onDragOver;
    std::function<void(const DragData&, ListRow* row)> onDrop;

private:
    friend class ListRow;
    void touched();
    void forget(const ListRow& row);

    std::vector<ListColumn> columns_;
    std::vector<std::unique_ptr<ListRow>> rows_;
    std::unordered_map<std::string, ListRow*> byKey_; // upper-cased
    mutable std::vector<ListRow*> shown_;
    mutable bool shownIsOld_ = true;
    bool sorted_ = false;
    int sortKey_ = 0;
    Selection selection_;
    ListRow* selected_ = nullptr;
    ListRow* rangeEnd_ = nullptr;
};

} // namespace zb
