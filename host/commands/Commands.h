#pragma once

/// The host's own commands, one function each; the table that names them is in CommandTable.cpp.
/// Each asks through the interface's functions of input, and throws CommandCancelled when the user cancels.
namespace commands {

// drawing
void line();
void polyline();
void circle();
void arc();
void point();
void text();
void insert();

// changing
void erase();
void move();
void copy();
void rotate();
void scale();
void mirror();
void explode();

// layers, names, current properties
void layer();
void changeProperties();
void rename();
void color();

// asking about the drawing
void list();
void distance();
void identify();
void area();

// the view
void zoom();
void pan();
void regenerate();

// files
void open();
void newDrawing();
void saveAs();
void quickSave();
void close();
void recover();
void auditDrawing();
void plot();

// history
void undoOne();
void undo();
void redo();
void redoMany();

// the session
void script();
void loadApplication();
void setVariable();
void objectSnaps();

} // namespace commands
