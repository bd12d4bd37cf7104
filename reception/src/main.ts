import './style/index.css'
import { connect } from 'panorel-client'
import { readConfig } from './siteconfig.js'
import { start } from './start.js'

const site = (window as { reception?: unknown }).reception
start(document.body, readConfig(site), () => connect())
