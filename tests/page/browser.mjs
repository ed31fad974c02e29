// Headless Chromium for the page's tests.
import { after } from 'node:test';
import { chromium } from 'playwright-core';

const executablePath = process.env.CHROMIUM || '/usr/bin/chromium';
const args = ['--no-sandbox', '--disable-gpu', '--disable-quic'];

export const browser = await chromium.launch({ executablePath, args });
after(() => browser.close());
