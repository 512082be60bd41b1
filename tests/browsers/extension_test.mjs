// The extension's logic against a browser that is played.
import assert from "node:assert/strict";
import { test } from "node:test";

import { Bridge, hostName, reconnectDelay, shortened } from "../../browser-extension/bridge.mjs";

class Event {
    listeners = [];
    addListener(listener) {
        this.listeners.push(listener);
    }
    fire(...values) {
        for (const listener of this.listeners) listener(...values);
    }
}

class Port {
    onMessage = new Event();
    onDisconnect = new Event();
    answers = [];
    isOpen = true;
    postMessage(message) {
        if (!this.isOpen) throw new Error("Attempting to use a disconnected port object");
        this.answers.push(message);
    }
    die() {
        this.isOpen = false;
        this.onDisconnect.fire(this);
    }
}

class Browser {
    ports = [];
    timers = [];
    shown = [];
    updated = [];
    failure = null;
    runtime = {
        connectNative: (name) => {
            assert.equal(name, hostName);
            this.ports.push(new Port());
            return this.ports.at(-1);
        },
    };
    tabs = {
        query: async (wanted) => {
            if (this.failure) throw new Error(this.failure);
            return this.shown.filter((tab) => Object.entries(wanted).every(([key, value]) => tab[key] === value));
        },
        update: async (id, change) => this.updated.push([id, change]),
    };
    bridge = new Bridge(this, (milliseconds, call) => this.timers.push({ milliseconds, call }));

    async ask(request) {
        const port = this.ports.at(-1);
        port.onMessage.fire(request);
        for (let turn = 0; turn < 20; ++turn) await null;
        return port.answers.pop();
    }
}

function connected(...shown) {
    const browser = new Browser();
    browser.shown = shown;
    browser.bridge.connect();
    return browser;
}

const tab = (id, windowId, url, more = {}) => ({ id, windowId, url, active: true, ...more });

test("the list holds the active tab of every window", async () => {
    const browser = connected(
        tab(1, 10, "http://a.example/"),
        tab(2, 10, "http://hidden.example/", { active: false }),
        tab(3, 11, "http://b.example/", { incognito: true }),
    );
    assert.deepEqual(await browser.ask({ id: 7, do: "list" }), {
        id: 7,
        tabs: [
            { window: 10, place: 0, url: "http://a.example/" },
            { window: 11, place: 0, url: "http://b.example/" },
        ],
    });
});

test("a browser without windows has an empty list", async () => {
    assert.deepEqual(await connected().ask({ id: 1, do: "list" }), { id: 1, tabs: [] });
});

test("a page that has only begun to load is told by what it waits for", async () => {
    const browser = connected(tab(1, 10, "", { pendingUrl: "http://a.example/" }), tab(2, 11, undefined));
    const { tabs } = await browser.ask({ id: 1, do: "list" });
    assert.deepEqual(tabs.map((each) => each.url), ["http://a.example/", ""]);
});

test("tabs that share a window are all listed, each with its place", async () => {
    const browser = connected(
        tab(1, 10, "http://a.example/", { splitViewId: 5 }),
        tab(2, 10, "http://b.example/", { active: false, splitViewId: 5 }),
        tab(3, 10, "http://hidden.example/", { active: false, splitViewId: -1 }),
        tab(4, 10, "http://hidden.example/", { active: false, splitViewId: 6 }),
        tab(5, 11, "http://c.example/", { splitViewId: -1 }),
    );
    const { tabs } = await browser.ask({ id: 1, do: "list" });
    assert.deepEqual(tabs.map((each) => [each.window, each.place, each.url]), [
        [10, 0, "http://a.example/"],
        [10, 1, "http://b.example/"],
        [11, 0, "http://c.example/"],
    ]);
    await browser.ask({ id: 2, do: "blank", window: 10, place: 1 });
    assert.deepEqual(browser.updated, [[2, { url: "about:blank" }]]);
});

test("blanking changes the active tab of that window only", async () => {
    const browser = connected(tab(1, 10, "http://a.example/"), tab(2, 11, "http://b.example/"));
    assert.deepEqual(await browser.ask({ id: 2, do: "blank", window: 11, place: 0 }), { id: 2, done: true });
    assert.deepEqual(browser.updated, [[2, { url: "about:blank" }]]);
});

test("blanking a window that has gone does nothing and succeeds", async () => {
    const browser = connected(tab(1, 10, "http://a.example/"));
    assert.deepEqual(await browser.ask({ id: 2, do: "blank", window: 99, place: 0 }), { id: 2, done: true });
    assert.deepEqual(await browser.ask({ id: 3, do: "blank", window: 10, place: 4 }), { id: 3, done: true });
    assert.deepEqual(browser.updated, []);
});

test("a request that fails or is unknown is answered with an error", async () => {
    const browser = connected();
    assert.match((await browser.ask({ id: 1, do: "dance" })).error, /unknown request/);
    browser.failure = "no\ud800";
    const answer = await browser.ask({ id: 2, do: "list" });
    assert.equal(answer.id, 2);
    assert.ok(answer.error.isWellFormed?.() ?? true);
});

test("a host that has died is followed by the next after a while, once", () => {
    const browser = connected();
    browser.ports[0].die();
    browser.bridge.connect();
    assert.equal(browser.ports.length, 1, "it waits, whatever wakes it");
    assert.deepEqual(browser.timers.map((each) => each.milliseconds), [reconnectDelay]);
    browser.timers[0].call();
    browser.bridge.connect();
    assert.equal(browser.ports.length, 2);
    browser.ports[1].die();
    browser.ports[1].onDisconnect.fire();
    assert.equal(browser.timers.length, 2, "each loss is waited for once");
});

test("the wait is long enough that every poll notices, and short enough for a browser that is set up", () => {
    assert.ok(reconnectDelay >= 4000 && reconnectDelay <= 6000);
});

test("a browser that cannot connect at all tries again after a while", () => {
    const browser = new Browser();
    browser.runtime.connectNative = () => {
        throw new Error("no native messaging");
    };
    browser.bridge.connect();
    assert.deepEqual(browser.timers.map((each) => each.milliseconds), [reconnectDelay]);
});

test("an answer to a host that has gone meanwhile is dropped", async () => {
    const browser = connected(tab(1, 10, "http://a.example/"));
    browser.ports[0].isOpen = false;
    assert.equal(await browser.ask({ id: 1, do: "list" }), undefined);
});

test("a long address keeps its host name", () => {
    assert.equal(shortened("http://a.example/"), "http://a.example/");
    const long = "http://a.example/" + "x".repeat(100000);
    assert.equal(shortened(long), long.slice(0, 4096));
    const user = "http://" + "u".repeat(10000) + "@evil.example/path";
    assert.equal(shortened(user), "http://" + "u".repeat(10000) + "@evil.example/");
    assert.equal(shortened("http://a.example:" + "0".repeat(5000) + "80@evil.example"),
        "http://a.example:" + "0".repeat(5000) + "80@evil.example");
    assert.equal(shortened("http://a.example:" + "0".repeat(100000) + "80@evil.example/"), "http://address.invalid/");
    assert.equal(shortened("data:text/html," + "x".repeat(10000000)).slice(0, 15), "data:text/html,");
    assert.ok(shortened("data:," + "x".repeat(10000000)).length <= 70000);
});

test("half a surrogate pair is replaced", () => {
    assert.equal(shortened("http://a.example/\ud800x"), "http://a.example/\ufffdx");
    assert.equal(shortened("http://a.example/" + "x".repeat(4078) + "\u{1f600}").at(-1), "\ufffd");
});
