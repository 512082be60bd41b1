// Runs whenever the browser starts this extension, be it for the first time or once more.
import { Bridge } from "./bridge.mjs";

const api = globalThis.browser ?? globalThis.chrome;
const bridge = new Bridge(api);

// Browsers put an idle extension to sleep. The connection itself mostly keeps it awake; where it does not, and after a
// crash, these events bring it back.
const wake = () => bridge.connect();
api.alarms.onAlarm.addListener(wake);
api.runtime.onStartup.addListener(wake);
api.runtime.onInstalled.addListener(wake);
api.windows.onCreated.addListener(wake);
api.alarms.create("wake", { periodInMinutes: 0.5 });

wake();
