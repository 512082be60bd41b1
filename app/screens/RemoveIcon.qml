import Velmorin.Controls

/// The cross of all buttons that remove something.
Symbol {
    name: "close"
    size: 16
    color: Theme.muted
}
