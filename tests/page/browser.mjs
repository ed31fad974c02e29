// Headless Chromium for the page's tests.
import { chromium } from 'playwright-core';

const args = [
    '--no-sandbox',
    '--disable-gpu',
    '--disable-quic',
    '--no-first-run',
    '--disable-background-networking',
    '--disable-component-update',
    '--disable-sync',
];

export function launchBrowser() {
    return chromium.launch({ executablePath: process.env.CHROMIUM || '/usr/bin/chromium', args });
}
