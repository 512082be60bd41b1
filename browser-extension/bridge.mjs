// Answers what the host on the other side of native messaging asks: which addresses the windows show, and to send one
// of them to the blank page. What it is given to work with comes from outside, so that it can be tried without a browser.

export const hostName = "com.kestrava.velmorin";

// How long a host that has gone is missed before the next one is started. A session asks every other second, so it
// always notices.
export const reconnectDelay = 5000;

// More of an address than this says nothing about whose page it is.
const longestAddress = 4096;
const longestAuthority = 65536;
const unreadableAddress = "http://address.invalid/";

// Half a surrogate pair can stand in no message.
function wellFormed(text) {
    return new TextDecoder().decode(new TextEncoder().encode(text));
}

// An address as it goes to the host: never cut before the end of its host name, so that what is left of a long one is
// judged like the whole. One with an endless host name is judged as nobody's.
export function shortened(address) {
    if (address.length <= longestAddress) return wellFormed(address);
    const scheme = /^[a-z][a-z0-9+.-]*:[/\\]*/i.exec(address.slice(0, longestAddress))?.[0].length ?? 0;
    const rest = address.slice(scheme, scheme + longestAuthority);
    const authority = rest.search(/[/?#\\]/);
    if (authority < 0 && scheme + rest.length < address.length) return unreadableAddress;
    const length = Math.max(longestAddress, authority < 0 ? address.length : scheme + authority + 1);
    return wellFormed(address.slice(0, length));
}

// A page that has only begun to load has no address yet but the one that it waits for.
function addressOf(tab) {
    return shortened(tab.url || tab.pendingUrl || "");
}

export class Bridge {
    #api;
    #after;
    #port = null;
    #isWaiting = false;

    // `api` is the browser's; `after(milliseconds, call)` calls later.
    constructor(api, after = (milliseconds, call) => setTimeout(call, milliseconds)) {
        this.#api = api;
        this.#after = after;
    }

    // Connects, unless it is connected or waits to be.
    connect() {
        if (this.#port || this.#isWaiting) return;
        try {
            const port = this.#api.runtime.connectNative(hostName);
            port.onMessage.addListener((request) => this.#answer(port, request));
            port.onDisconnect.addListener(() => this.#lost(port));
            this.#port = port;
        } catch {
            this.#wait();
        }
    }

    #lost(port) {
        void this.#api.runtime.lastError; // or the browser reports it as overlooked
        if (this.#port !== port) return;
        this.#port = null;
        this.#wait();
    }

    #wait() {
        this.#isWaiting = true;
        this.#after(reconnectDelay, () => {
            this.#isWaiting = false;
            this.connect();
        });
    }

    async #answer(port, request) {
        let answer;
        try {
            answer = await this.#reply(request);
        } catch (error) {
            answer = { error: wellFormed(String(error).slice(0, 200)) };
        }
        try {
            port.postMessage({ id: request.id, ...answer });
        } catch {
            // The host has gone meanwhile; whoever asked it knows.
        }
    }

    async #reply(request) {
        switch (request.do) {
            case "list":
                return { tabs: await this.#list() };
            case "blank":
                await this.#blank(request.window, request.place);
                return { done: true };
            default:
                throw new Error("unknown request");
        }
    }

    async #list() {
        const tabs = [];
        for (const active of await this.#api.tabs.query({ active: true })) {
            if (!(active.windowId >= 0)) continue;
            for (const [place, tab] of (await this.#shownWith(active)).entries())
                tabs.push({ window: active.windowId, place, url: addressOf(tab) });
        }
        return tabs;
    }

    // What a window shows: its active tab, followed by those that share the window with it in a split view.
    async #shownWith(active) {
        if (!(active.splitViewId >= 0)) return [active];
        const all = await this.#api.tabs.query({ windowId: active.windowId });
        return [active, ...all.filter((tab) => tab.splitViewId === active.splitViewId && tab.id !== active.id)];
    }

    // The window may have gone, or shows less than before: then there is nothing to do.
    async #blank(windowId, place) {
        const [active] = await this.#api.tabs.query({ active: true, windowId }).catch(() => []);
        if (!active) return;
        const tab = (await this.#shownWith(active))[place];
        if (tab) await this.#api.tabs.update(tab.id, { url: "about:blank" });
    }
}
