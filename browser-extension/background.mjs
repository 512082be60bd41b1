// Runs whenever the browser starts this extension, be it for the first time or once more.
import { Bridge } from "./bridge.mjs";

const api = globalThis.browser ?? globalThis.chrome;
const bridge = new Bridge(api);

// Browsers put an idle extension to sleep. The connection itself mostly keeps it awake; where it does not, after a crash,
// and after the user has changed what the extension may do, the next of these brings it back.
const wake = () => bridge.connect();
for (const event of [
    api.alarms.onAlarm,
    api.runtime.onInstalled,
    api.runtime.onStartup,
    api.tabs.onActivated,
    api.tabs.onUpdated,
    api.windows.onCreated,
])
    event.addListener(wake);
api.alarms.create("wake", { periodInMinutes: 0.5 });

wake();
