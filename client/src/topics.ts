// Generated from protocol/topics.json by scripts/client-types.py. Edit that.

/** No attributes. */
export type Nothing = { [name: string]: never }

/**
 * Presence counts: any value will do, `false` and `null` included. Write `true`, or leave it out:
 * `false` would not switch it off.
 */
export type Presence = true

/** A UUID in braces, in lower case. */
export type Uuid = string

/** ISO 8601, such as "2026-05-04T10:15:00"; "" when the robot does not know. */
export type DateTime = string

/** An entry of the dialog engine. */
export interface Id {
  /** 32 bits without sign. An integer. From 0 to 4294967295. */
  id: number
  uuid: Uuid
}

/** A line of the robot. */
export interface Replica {
  id: Id
  /** The answers that are expected after it. */
  anchor: Id
  category: Id
  /** What is spoken. */
  text: string
  /** What is shown. */
  screen_text: string
  url: string
  /** All actions as one text, with commas between them. */
  actions: string
  /** In the robot platform's numbering. An integer. */
  animation: number
  /** In the robot platform's numbering. An integer. */
  type: number
}

/** A replica without `screen_text`: a greeting is shown by its `text`. */
export interface Greeting {
  id: Id
  /** The answers that are expected after it. */
  anchor: Id
  category: Id
  /** What is spoken. */
  text: string
  url: string
  /** All actions as one text, with commas between them. */
  actions: string
  /** In the robot platform's numbering. An integer. */
  animation: number
  /** In the robot platform's numbering. An integer. */
  type: number
}

/** An answer of the dialog engine to what the user said. */
export interface Answer {
  id: Id
  /** In the robot platform's numbering. An integer. */
  source: number
  id_pattern: Id
  pattern: string
  question: string
  replica: Replica
}

/** How alike a face and a known person are. */
export interface Match {
  /** Which people `id` counts, in the robot platform's numbering. An integer. */
  type: number
  /** The known person, exact up to 2^53. An integer. */
  id: number
  /** How alike they are, in the robot platform's scale. */
  score: number
}

/** A face that the robot sees. */
export interface Face {
  /** The known person, exact up to 2^53; 0 when nobody knows the face. An integer. */
  id: number
  /** Which people `id` counts, in the robot platform's numbering. An integer. */
  type: number
  /** Whether the robot looks at this face. */
  is_tracking: boolean
  /** The face while it is in sight; commands to track a face want this number. An integer. */
  id_track: number
  /** In the robot platform's numbering. An integer. */
  gender: number
  /** In years. */
  age: number
  /** In the robot platform's words. */
  emotion: string
  /** The matches. */
  matches: { [key: string]: Match }
}

/** A person whom the robot knows. */
export interface Person {
  /** The person's id, exact up to 2^53. An integer. */
  id: number
  name: string
  /** In years. */
  age: number
  /** In the robot platform's numbering. An integer. */
  gender: number
  /** Any value, as it was given; null when nothing was. */
  extra_data: unknown
  acquaintance_date: DateTime
  last_visit: DateTime
}

/** One setting. */
export interface Setting {
  /** As it was asked. */
  settings_type: 'application' | 'system'
  /** As it was asked. */
  group: string
  /** The setting's name. */
  name: string
  /** Any value. */
  value: unknown
}

/**
 * An id as it is handed back: each member may be missing, and one of another kind counts as
 * missing.
 */
export interface GivenId {
  /** 32 bits without sign; 0 when missing. An integer. From 0 to 4294967295. */
  id?: number
  /** With or without braces; the null UUID when missing. */
  uuid?: string
}

/**
 * A replica as it is handed back: each member may be missing, and one of another kind counts as
 * missing.
 */
export interface GivenReplica {
  id?: GivenId
  /** The answers that are expected after it. */
  anchor?: GivenId
  category?: GivenId
  /** What is spoken. */
  text?: string
  /** What is shown. */
  screen_text?: string
  url?: string
  /** All actions as one text, with commas between them. */
  actions?: string
  /** In the robot platform's numbering. An integer. */
  animation?: number
  /** In the robot platform's numbering. An integer. */
  type?: number
}

/**
 * An answer as it is handed back: each member may be missing, and one of another kind counts as
 * missing.
 */
export interface GivenAnswer {
  id?: GivenId
  /** In the robot platform's numbering. An integer. */
  source?: number
  id_pattern?: GivenId
  pattern?: string
  question?: string
  replica?: GivenReplica
}

/**
 * A match as it is handed back: each member may be missing, and one of another kind counts as
 * missing.
 */
export interface GivenMatch {
  /** Which people `id` counts, in the robot platform's numbering. An integer. */
  type?: number
  /** The known person, exact up to 2^53. An integer. */
  id?: number
  /** How alike they are, in the robot platform's scale. */
  score?: number
}

/**
 * A face as it is handed back: each member may be missing, and one of another kind counts as
 * missing.
 */
export interface GivenFace {
  /** The known person, exact up to 2^53; 0 when nobody knows the face. An integer. */
  id?: number
  /** Which people `id` counts, in the robot platform's numbering. An integer. */
  type?: number
  /** Whether the robot looks at this face. */
  is_tracking?: boolean
  /** The face while it is in sight; commands to track a face want this number. An integer. */
  id_track?: number
  /** In the robot platform's numbering. An integer. */
  gender?: number
  /** In years. */
  age?: number
  /** In the robot platform's words. */
  emotion?: string
  /** The matches, under any keys; an array holds none. */
  matches?: { [key: string]: GivenMatch }
}

/** A category of replicas: its name, or its id. */
export type Category = string | GivenId

/** What the page can ask: topic and attributes. */
export interface RequestTopics {
  /** A line for the robot's log, category "panorel". */
  'system.log': {
    /** In any letter case; any other level logs nothing. */
    level: 'debug' | 'info' | 'warning' | 'critical'
    /** What to log; written quoted and escaped, on one line. Default `""`. */
    message?: string
  }
  /**
   * Records for a CSV file on the robot, one file for each statistics topic and period.
   *
   * What cannot be written is lost.
   *
   * The file is `~/.karvel/statistic/PERIOD/TOPIC.csv` of the robot's user. The host chooses the
   * period (`setStatisticPeriodicity`): a folder for each day "05.06.2019", week
   * "03.06.2019-09.06.2019" (Monday to Sunday), month "06.2019" or year "2019".
   */
  'system.statistic': {
    /** Names the file; nothing is written when it is empty or holds `/`, `\` or NUL. */
    topic: string
    /**
     * Appended as they are: complete CSV lines, line breaks included. An empty list still makes the
     * file. Default `[]`.
     */
    data?: string[]
  }
  /**
   * Starts or stops the interaction with the user.
   * - system.interaction.state, later: an interaction began or ended
   * - no answer: the robot has no interaction service, or nothing began or ended
   */
  'system.interaction.control': {
    /** Letter case counts; anything else does nothing. */
    state: 'Start' | 'Stop'
  }
  /** Switches the robot's language. */
  'system.language.set': {
    /** A code such as "en", passed on unchecked; without it nothing happens. */
    language: string
  }
  /**
   * Starts or cancels a script of the robot. `start` comes before `stop` when both are there.
   * - system.scripts.start.result, at once: with `start`
   * - system.scripts.end, later: the script has ended
   * - no answer: there is no `start`, or no robot behind the page
   */
  'system.scripts.control': {
    /** The script to run, passed on unchecked. */
    start?: string
    /** Cancels the running script; no reply. */
    stop?: Presence
  }
  /**
   * Makes the robot speak, play a replica, or go on with an answer. Whatever is present is done, in
   * the order of this table.
   * - dialog.robot.replic.start, later, not the outcome: the robot begins a line
   * - dialog.robot.replic.finish, later: the line has ended
   * - no answer: nothing is spoken or played; of a step without a replica nobody is told
   *
   * Inside `category`, `face`, `replica` and `answer` a key counts only with the kind of JSON value
   * that the records below give; anything else leaves the default. Integers must be integral: 2.5
   * reads as 0.
   */
  'dialog.say': {
    /** Macro values by name, lent until the robot's line has ended or is aborted. */
    macroses?: { [key: string]: string }
    /** Spoken at once, unless empty. Default `""`. */
    text?: string
    /** The application step whose replica the dialog engine chooses and plays. */
    step?: string
    /** With `step`: category of the replica; the default category when missing. */
    category?: Category
    /** With `step`: passed to the dialog engine. Default `true`. */
    use_general?: boolean
    /** With `step`: passed to the dialog engine. Default `true`. */
    use_biometry?: boolean
    /** With `step`: a face as in `face.recognize.info`; an empty one when missing. */
    face?: GivenFace
    /** Played as it stands; as in `dialog.replica.load`. */
    replica?: GivenReplica
    /** Reported to the dialog engine as the user's; as in `dialog.answer.load`. */
    answer?: GivenAnswer
    /** Whether the turn ends with what is spoken or played. Default `true`. */
    terminate?: boolean
  }
  /** Stops the robot's speech and withdraws the macro values. */
  'dialog.robot.replic.abort': Nothing
  /**
   * Asks which replica the dialog engine would say, without saying it.
   * - dialog.replica.load, at once: there is such a replica
   * - no answer: there is no such replica, or neither `step` nor `replica_type`
   *
   * A request without a result gets no reply: wait with a time limit.
   */
  'dialog.replica.get': {
    /** The application step. */
    step?: string
    /** Without `step`: the type of replica. An integer. */
    replica_type?: number
    /** As in `dialog.say`. */
    category?: Category
    /** As in `dialog.say`. Default `true`. */
    use_general?: boolean
    /** As in `dialog.say`. Default `true`. */
    use_biometry?: boolean
    /** As in `dialog.say`. */
    face?: GivenFace
  }
  /**
   * Commands for the face recognition, done in this order.
   * - face.add.status, later: the training that `add_face` began goes on
   * - no answer: there is no `add_face`, or the robot does not train
   */
  'face.recognize.control': {
    /** Automatic tracking on or off. */
    tracking_auto?: boolean
    /** Track the face with this track id (`id_track`). An integer. */
    tracking_face?: number
    /** Learn the face with this id. An integer. */
    add_face?: number
    /** Forget the face with this id. An integer. */
    del_face?: number
    /** Head movement on or off. */
    head_enabled?: boolean
  }
  /**
   * A touch on the picture of the camera. The robot tracks each face whose rectangle holds the
   * point.
   * - system.general.setted, at once: once for each face that the robot reported there
   * - no answer: no face stands there, or the robot reported only its rectangle
   *
   * The topic also carries face reports inside the robot, under `rect` and `info`; those never
   * reach the page, and a page must not send these two attributes: the robot would forget the faces
   * seen last.
   *
   * Rectangles and faces come to the robot apart: a face that has only a rectangle yet is tracked
   * all the same, without an answer.
   */
  'system.general.touch': {
    /** The point's distance from the left, in pixels of the page. In pixels. */
    x: number
    /** Its distance from the top; without both nothing happens. In pixels. */
    y: number
  }
  /**
   * Reads, adds or deletes a person, in this order.
   * - database.user.response, at once: always, once
   *
   * A person who is added and read in one request is read before the addition.
   */
  'database.user.request': {
    /** The person's id. An integer. */
    get_user?: number
    /** The person; both dates become now. */
    add_user?: {
      /** The person's id; 0 when missing. An integer. */
      id?: number
      /** Default `""`. */
      name?: string
      /** In years. Default `0`. */
      age?: number
      /** An integer. Default `0`. */
      gender?: number
      /** Any value, which comes back as it is. */
      extra_data?: unknown
    }
    /** The person's id. An integer. */
    del_user?: number
  }
  /**
   * Calls a human operator, or withdraws the call.
   * - operator.call.response, later: the operator has answered
   * - operator.control.status, later: an operator takes over or leaves
   * - no answer: no operator answers
   */
  'operator.call.request': {
    /** `true` calls, `false` withdraws; without it nothing happens. */
    call: boolean
  }
  /**
   * Prints a picture. Each answer is a topic without attributes.
   * - printer.success, at once: the picture is printed
   * - printer.error, at once: the printer is not connected, reports an error, or could not print
   * - printer.nopaper, at once: the printer has no paper
   * - printer.noprinter, at once: the robot has no printer
   * - printer.paper.low, at once, not the outcome: paper is low
   * - no answer: the printer reports an error of code 0
   *
   * When paper is low there are two answers: `printer.paper.low` first, then how the printing went.
   *
   * While the printer reports an error of code 0 there is no answer: wait with a time limit.
   *
   * Without usable `data` the picture before is printed once more.
   */
  'printer.print': {
    /**
     * The picture: a PNG as base64, with or without `data:image/png;base64,` before it, as
     * `canvas.toDataURL()` gives it.
     */
    data?: string
    /** `true` prints without asking whether the printer is connected. Default `false`. */
    ignore_not_connected?: boolean
  }
  /**
   * Asks what state the printer is in, which is what it last announced.
   * - printer.state.info, at once: the state has a name here
   * - no answer: the printer reports a state that has no name here
   *
   * A robot without a printer is "NOT_CONNECTED".
   */
  'printer.state': {
    /**
     * `true` calls an idle or missing printer "IDLE" without asking whether it is connected.
     * Default `false`.
     */
    ignore_not_connected?: boolean
  }
  /**
   * Hands out a card. What becomes of the card is told by the dispenser's events.
   * - dispenser.nodispenser, at once: the robot has no dispenser
   * - dispenser.not.connected, at once: the dispenser is not connected
   * - dispenser.communication.timeout, later: a status of the dispenser
   * - dispenser.card.dispensing, later, not the outcome: a status of the dispenser
   * - dispenser.card.preempty, later, not the outcome: a status of the dispenser
   * - dispenser.card.empty, later: a status of the dispenser
   * - dispenser.cardbin.full, later, not the outcome: a status of the dispenser
   * - dispenser.card.error, later: a status of the dispenser
   * - dispenser.sensor, later: a status of the dispenser
   * - no answer: the dispenser is asked for the card and reports nothing
   *
   * One report of the dispenser may bring several of its topics, always in the order in which they
   * stand here.
   */
  'dispenser.dispense': {
    /** `true` does so without asking whether the dispenser is connected. Default `false`. */
    ignore_not_connected?: boolean
  }
  /**
   * Sets the document scanner, connected or not, and starts a scan. The rest comes as the scanner's
   * events.
   * - scanner.document.response, at once: always, once
   * - scanner.document.state, later, not the outcome: the scanner's state changed
   * - scanner.document.progress, later, not the outcome: the scan goes on
   * - scanner.document.error, later: the scan failed
   * - scanner.document.finish, later: the scan ended
   */
  'scanner.document.request': {
    /**
     * In the scanner's numbering, of which 8 bits count; left as it is when missing. An integer.
     * From 0 to 255.
     */
    mode?: number
    /**
     * In the scanner's numbering, of which 8 bits count; left as it is when missing. An integer.
     * From 0 to 255.
     */
    brightness?: number
    /**
     * Of which 16 bits count; left as it is when missing. An integer. From 0 to 65535. In dots per
     * inch.
     */
    resolution?: number
    /** How long to wait for a document. In seconds. Default `30`. */
    timeout?: number
    /** `true` starts without asking whether the scanner is connected. Default `false`. */
    ignore_not_connected?: boolean
  }
  /**
   * Starts a scan of a passport. The rest comes as the scanner's events.
   * - scanner.passport.response, at once: always, once
   * - scanner.passport.state, later, not the outcome: the scanner's state changed
   * - scanner.passport.error, later: the scan failed
   * - scanner.passport.finish, later: the scan ended
   */
  'scanner.passport.request': {
    /** How long to wait for a passport. In seconds. Default `30`. */
    timeout?: number
    /** `true` starts without asking whether the scanner is connected. Default `false`. */
    ignore_not_connected?: boolean
  }
  /**
   * Steers the robot's base. Whatever is present is done, in this order.
   * - system.drive.mode, later: the drive mode changed
   * - system.drive.status, later: the robot moves, or stands
   * - system.drive.charge, later: the way to the charger goes on
   * - no answer: the drive reports nothing
   */
  'system.drive.control': {
    /**
     * Drives to the point with this number, of which 16 bits count. An integer. From 0 to 65535.
     */
    drive_point?: number
    /** `true` pauses, `false` goes on. */
    drive_pause?: boolean
    /** The drive mode, in the robot platform's numbering. An integer. */
    drive_mode?: number
    /** `true` goes to the charger, `false` leaves it. */
    drive_charger?: boolean
  }
  /**
   * Shows, hides and configures the robot's on-screen keyboard. Whatever is present is done, in
   * this order.
   * - keyboard.control.response, at once: with `get_locale`, and once more with `is_visible`
   * - no answer: neither is asked, or the robot has no keyboard
   *
   * `get_locale` beside `set_locale` is answered with the locale before.
   */
  'keyboard.control.request': {
    /** Answered with `locale`. */
    get_locale?: Presence
    /** Answered with `is_visible`, by a message of its own. */
    is_visible?: Presence
    /** A locale such as "en_GB"; no reply. */
    set_locale?: string
    /** Shows the keyboard; no reply. */
    show?: Presence
    /** Hides it, also together with `show`; no reply. */
    hide?: Presence
  }
  /**
   * Reads settings.
   * - system.settings.load, at once: always, once
   *
   * The answer is empty when nothing was found, and when the request makes no sense.
   */
  'system.settings.get': {
    /** Letter case counts. */
    settings_type: 'application' | 'system'
    /** The group's name. */
    group: string
    /** One setting; empty or missing for the whole group. Default `""`. */
    name?: string
  }
  /**
   * Asks which robot this is.
   * - system.environment.load, at once: always, once
   *
   * Attributes do not count.
   */
  'system.environment.get': Nothing
  /**
   * Reads and sets the volumes. Whatever is present is done, in this order, so what is read is the
   * level before the change.
   * - system.sound.load, at once: with `get_volume` or `get_mic`, once
   * - no answer: nothing is read
   */
  'system.sound.properties': {
    /** Reads the loudspeaker's volume. */
    get_volume?: Presence
    /** Sets it, in the mixer's scale; what is no number sets 0. An integer. */
    set_volume?: number
    /** Reads the microphone's level. */
    get_mic?: Presence
    /** Sets it, in the mixer's scale; what is no number sets 0. An integer. */
    set_mic?: number
  }
  /**
   * Plays a sound or another medium on the robot, one at a time.
   * - system.play.status, later: the player changed, perhaps already before `sendMessage` returns
   * - no answer: the player does not change
   */
  'system.play.external': {
    /**
     * What to play, instead of what was playing; a file as a file URL; an empty one plays nothing
     * and says nothing.
     */
    url?: string
    /**
     * With `url`; what is no number plays silently. An integer. From 0 to 100. In percent. Default
     * `60`.
     */
    volume?: number
    /** Stops, after `url`. */
    stop?: Presence
  }
  /**
   * Records from the robot's microphone into a file.
   * - record.audio.response, at once: with `stop`
   * - record.audio.response, later: the time is over, whether or not it went well
   * - no answer: there is neither `start` nor `stop`
   *
   * The file lies below `/tmp`. Its name ends in `.wav`, but it holds FLAC sound in the container
   * that the robot's multimedia system prefers, such as Matroska.
   *
   * The file is closed a moment after the answer: wait before you send it anywhere. Nobody deletes
   * it.
   */
  'record.audio.request': {
    /** Starts; a recording that runs already ends without an answer. */
    start?: Presence
    /**
     * With `start`: how long, at most some 24 days; what is no number, or negative, ends it at
     * once. An integer. From 0 to 2147483. In seconds. Default `20`.
     */
    timeout?: number
    /** Ends it now; answered also when none runs. */
    stop?: Presence
  }
  /**
   * Places telephone calls. Whatever is present is done, in this order.
   * - sip.call.response, at once: with `call_start`
   * - sip.file.response, at once: with `play_file`
   * - sip.text.response, at once: with `play_text`
   * - sip.events, later: a call goes on or ends
   * - no answer: there is neither `call_start`, `play_file` nor `play_text`
   *
   * `number`, `file` and `text` are texts and required, also where a number would look natural:
   * otherwise no call is made and the answer says so.
   */
  'sip.control': {
    /** An ordinary call. */
    call_start?: {
      /** The number to call. */
      number: string
    }
    /** Queues a call that plays a sound file. */
    play_file?: {
      /** The number to call. */
      number: string
      /** Path of the sound file on the robot. */
      file: string
      /**
       * How often to call again; the default also for another kind; 0 when it is no integer of 32
       * bits. An integer. Default `1`.
       */
      recall_count?: number
    }
    /** Queues a call that speaks a text. */
    play_text?: {
      /** The number to call. */
      number: string
      /** What to speak. */
      text: string
      /**
       * How often to call again; the default also for another kind; 0 when it is no integer of 32
       * bits. An integer. Default `1`.
       */
      recall_count?: number
    }
    /** Drops the queued calls; no reply. */
    clear_queue?: Presence
    /** Hangs up; no reply. */
    call_stop?: Presence
  }
  /**
   * Sends a mail from the robot's account.
   * - mail.sender.response, later: the sending has ended
   * - no answer: there is no `email`
   *
   * Without `email` nothing is sent or answered.
   *
   * Several mails may be on their way; the answers come in the order of the ends and do not say
   * which mail they mean.
   */
  'mail.sender.request': {
    /** The recipient. */
    email: string
    /** Default `""`. */
    subject?: string
    /** Default `""`. */
    body?: string
    /** Path of a file on the robot to attach; "" for none. Default `""`. */
    filename?: string
  }
  /**
   * The user's answer to a question.
   *
   * Passed to the dialog engine even when no question is open.
   */
  'dialog.question.answer': {
    /** The chosen or spoken answer. Default `""`. */
    text?: string
  }
  /** Free for host code and pages. */
  'cookie.set': { [name: string]: unknown }
  /** Free for host code and pages. */
  'cookie.set.done': { [name: string]: unknown }
  /** Free for host code and pages. */
  'parameters.get': { [name: string]: unknown }
  /** Free for host code and pages. */
  'system.custom.event.js': { [name: string]: unknown }
}

/** What the page is told: topic and attributes. */
export interface EventTopics {
  /**
   * What the script engine says to `start`.
   *
   * Comes in reply to `system.scripts.control` with `start`.
   */
  'system.scripts.start.result': {
    /** The script engine's lines. */
    result: string[]
  }
  /**
   * Whether the robot is in an interaction.
   *
   * Comes when an interaction began or ended, whoever started it.
   *
   * `Reason` has a capital R, `state` has none.
   */
  'system.interaction.state':
    | {
      state: 'Interaction'
      /** Why it began, in the robot platform's numbering. An integer. */
      Reason: number
    }
    | {
      // it ended
      state: 'NonInteraction'
      Reason?: undefined
    }
  /**
   * The replica that the dialog engine would say.
   *
   * Comes in reply to `dialog.replica.get`.
   */
  'dialog.replica.load': {
    replica: Replica
  }
  /**
   * A touch chose a face.
   *
   * Comes in reply to `system.general.touch`, once for each face at the point.
   */
  'system.general.setted': {
    /** The known person's id, exact up to 2^53; 0 for a face that nobody knows. An integer. */
    setted_id: number
  }
  /**
   * What became of each operation that was asked.
   *
   * Comes in reply to `database.user.request`.
   *
   * `response` is empty when nothing was asked.
   */
  'database.user.response': {
    /** One member for each operation. */
    response: {
      /** The person, or `false` when there is none. */
      get_user?: Person | false
      /** Whether it was done. */
      add_user?: boolean
      /** Whether it was done. */
      del_user?: boolean
    }
  }
  /**
   * A question for the user.
   *
   * Comes when the dialog engine asks.
   */
  'dialog.question.new': {
    /** The question. */
    text: string
    /** The possible answers, in the engine's order. */
    answers: string[]
  }
  /**
   * The question is withdrawn.
   *
   * Comes when the dialog engine no longer asks.
   *
   * An answer alone does not bring this.
   */
  'dialog.question.cancel': Nothing
  /**
   * The picture is printed.
   *
   * Comes in reply to `printer.print`.
   */
  'printer.success': Nothing
  /**
   * The picture is not printed.
   *
   * Comes in reply to `printer.print`.
   *
   * It also means that the printer is not connected.
   */
  'printer.error': Nothing
  /**
   * The printer has no paper; nothing is printed.
   *
   * Comes in reply to `printer.print`.
   */
  'printer.nopaper': Nothing
  /**
   * The robot has no printer.
   *
   * Comes in reply to `printer.print`.
   */
  'printer.noprinter': Nothing
  /**
   * Paper is low; the picture is printed all the same.
   *
   * Comes in reply to `printer.print`, before how the printing went.
   *
   * One of the other answers follows.
   */
  'printer.paper.low': Nothing
  /**
   * The state that the printer last announced.
   *
   * Comes in reply to `printer.state`.
   *
   * An error stays until the printer announces another state.
   */
  'printer.state.info':
    | {
      // no error
      state: 'IDLE' | 'IN_PROCESS' | 'NOT_CONNECTED'
      error_code?: undefined
      error_message?: undefined
    }
    | {
      /** "ERROR" for any other error, code 0 included. */
      state: 'NO_PAPER' | 'LOW_PAPER' | 'ERROR'
      /** In the printer's numbering; 1 is no paper, 2 low paper. An integer. */
      error_code: number
      /** The printer's words. */
      error_message: string
    }
  /**
   * The robot has no dispenser.
   *
   * Comes in reply to `dispenser.dispense`.
   */
  'dispenser.nodispenser': Nothing
  /**
   * The dispenser is not connected.
   *
   * Comes in reply to `dispenser.dispense`, and when the dispenser says so.
   */
  'dispenser.not.connected': Nothing
  /**
   * The dispenser did not answer the robot in time.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.communication.timeout': Nothing
  /**
   * A card is on its way.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.card.dispensing': Nothing
  /**
   * There are few cards left.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.card.preempty': Nothing
  /**
   * There are no cards left.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.card.empty': Nothing
  /**
   * The bin for cards that were taken back is full.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.cardbin.full': Nothing
  /**
   * A card could not be handed out.
   *
   * Comes when the dispenser says so.
   */
  'dispenser.card.error': Nothing
  /**
   * A sensor sees a card.
   *
   * Comes when the dispenser says so, after its other topics, for each sensor that sees a card.
   */
  'dispenser.sensor': {
    /** "DispSensor" sees a card at the exit. */
    sensor: 'DispSensor' | 'CaptSensor2' | 'CaptSensor1'
  }
  /**
   * Whether the scan started.
   *
   * Comes in reply to `scanner.document.request`.
   */
  'scanner.document.response': {
    success: boolean
  }
  /**
   * Whether the scan started.
   *
   * Comes in reply to `scanner.passport.request`.
   */
  'scanner.passport.response': {
    success: boolean
  }
  /**
   * The scanner's new state.
   *
   * Comes when the scanner's state changed.
   */
  'scanner.document.state': {
    /** In the robot platform's numbering. An integer. */
    state: number
  }
  /**
   * The scanner's new state.
   *
   * Comes when the scanner's state changed.
   */
  'scanner.passport.state': {
    /** In the robot platform's numbering. An integer. */
    state: number
  }
  /**
   * How far the scan is. Documents only.
   *
   * Comes when the scan goes on.
   */
  'scanner.document.progress': {
    /** A text: a number with up to 6 digits. */
    progress: string
  }
  /**
   * The scan failed.
   *
   * Comes when the scanner reports an error.
   *
   * The error code is a text, not a number.
   */
  'scanner.document.error': {
    /** A text: a decimal number, in the scanner's numbering. */
    code: string
    /** The scanner's words. */
    text: string
  }
  /**
   * The scan failed.
   *
   * Comes when the scanner reports an error.
   *
   * The error code is a text, not a number.
   */
  'scanner.passport.error': {
    /** A text: a decimal number, in the scanner's numbering. */
    code: string
    /** The scanner's words. */
    text: string
  }
  /**
   * What was read.
   *
   * Comes when the scan ended.
   *
   * `data` is empty when nothing was read.
   */
  'scanner.document.finish': {
    /** Field name to what was read. */
    data: { [key: string]: string }
  }
  /**
   * What was read.
   *
   * Comes when the scan ended.
   *
   * `data` is empty when nothing was read.
   */
  'scanner.passport.finish': {
    /** Field name to what was read. */
    data: { [key: string]: string }
  }
  /**
   * What was asked of the keyboard.
   *
   * Comes in reply to `keyboard.control.request`.
   *
   * A request with both questions brings two messages, `locale` first.
   */
  'keyboard.control.response':
    | {
      // to `get_locale`
      /** Such as "en_GB". */
      locale: string
      is_visible?: undefined
    }
    | {
      // to `is_visible`
      is_visible: boolean
      locale?: undefined
    }
  /**
   * The settings that were found.
   *
   * Comes in reply to `system.settings.get`.
   *
   * A map, not a list: the keys are random, change with every answer and say nothing. Their order
   * says nothing, either.
   */
  'system.settings.load': {
    /** The settings. */
    settings: { [key: string]: Setting }
  }
  /**
   * Which robot this is.
   *
   * Comes in reply to `system.environment.get`.
   */
  'system.environment.load': {
    environment: {
      uuid_robot: Uuid
      uuid_owner: Uuid
      /** The robot's name. */
      name: string
      /** The host's name with the line break of the command that tells it. */
      id: string
      date_of_creation: DateTime
    }
  }
  /**
   * The volumes, as far as they were asked for.
   *
   * Comes in reply to `system.sound.properties`.
   */
  'system.sound.load': {
    sound: {
      /** The loudspeaker's, in the mixer's scale. An integer. */
      volume?: number
      /** The microphone's. An integer. */
      mic?: number
    }
  }
  /**
   * What the player does.
   *
   * Comes when the player changed.
   *
   * An error may come after "PlayingState" and "StoppedState".
   */
  'system.play.status':
    | {
      // it plays, stopped, or reached the end
      status: 'PlayingState' | 'StoppedState' | 'EndOfMedia'
      error?: undefined
      error_description?: undefined
    }
    | {
      status: 'error'
      /**
       * 1 not found or unreadable, 2 format, 3 network, 4 access denied, 5 no player. An integer.
       */
      error: number
      error_description: string
    }
  /**
   * The recorded file.
   *
   * Comes when a recording ended, or was to.
   *
   * The file is closed a moment after this, and is missing when the recording failed.
   */
  'record.audio.response': {
    /** The path; "" before the first recording. */
    file: string
  }
  /**
   * Whether the call was started.
   *
   * Comes in reply to `sip.control` with `call_start`.
   */
  'sip.call.response': {
    result: boolean
  }
  /**
   * The queued call.
   *
   * Comes in reply to `sip.control` with `play_file`.
   */
  'sip.file.response': {
    /**
     * The queued call's id, which its "hidden_call" carries, too;
     * "{00000000-0000-0000-0000-000000000000}" when there is none.
     */
    uuid: Uuid
  }
  /**
   * The queued call.
   *
   * Comes in reply to `sip.control` with `play_text`.
   */
  'sip.text.response': {
    /**
     * The queued call's id, which its "hidden_call" carries, too;
     * "{00000000-0000-0000-0000-000000000000}" when there is none.
     */
    uuid: Uuid
  }
  /**
   * How calls go.
   *
   * Comes when a queued call ended, the ordinary call went on, or the other party pressed a key.
   */
  'sip.events':
    | {
      // a queued call ended
      event: 'hidden_call'
      /** The queued call's id. */
      uuid: Uuid
      success: boolean
      state?: undefined
      tone?: undefined
    }
    | {
      // the ordinary call went on
      event: 'public_call'
      /** In the robot platform's numbering. An integer. */
      state: number
      uuid?: undefined
      success?: undefined
      tone?: undefined
    }
    | {
      // the other party pressed a key
      event: 'tone'
      /** The key, in the robot platform's numbering. An integer. */
      tone: number
      uuid?: undefined
      success?: undefined
      state?: undefined
    }
  /**
   * Whether a mail was sent.
   *
   * Comes when the sending of a mail has ended.
   *
   * It does not say which mail it means.
   */
  'mail.sender.response':
    | {
      // sent
      status: 'success'
      code?: undefined
      text?: undefined
    }
    | {
      status: 'error'
      /** A text: a decimal number. */
      code: string
      /** The sender's words. */
      text: string
    }
  /**
   * A person whom the robot knows is there.
   *
   * Comes when somebody came.
   *
   * The person's id comes as `user_id`: `id` is the message's.
   *
   * A robot platform with a user record of its own may add members.
   */
  'user.has.user': {
    /** The person's id, exact up to 2^53. An integer. */
    user_id: number
    name: string
    /** In years. */
    age: number
    /** In the robot platform's numbering. An integer. */
    gender: number
    /** Any value, as it was given; null when nothing was. */
    extra_data: unknown
    acquaintance_date: DateTime
    last_visit: DateTime
  }
  /**
   * The person is gone.
   *
   * Comes when nobody is there any more.
   */
  'user.lost.user': Nothing
  /**
   * How the robot greets.
   *
   * Comes when the dialog engine greets.
   *
   * The only replica without `screen_text`.
   */
  'dialog.greeting.load': {
    greeting: Greeting
  }
  /**
   * A replica beside the dialog.
   *
   * Comes when the dialog engine has one.
   */
  'dialog.replica.extra.load': {
    replica: Replica
  }
  /**
   * The answer to what the user said.
   *
   * Comes when the dialog engine found it.
   */
  'dialog.answer.load': {
    answer: Answer
  }
  /**
   * The faces that the robot sees now.
   *
   * Comes when the camera reports, up to 25 times a second.
   *
   * A map, not a list: the keys are random, change with every report and say nothing. So are those
   * of `matches`.
   *
   * No face is an empty map.
   */
  'face.recognize.info': {
    /** The faces. */
    info: { [key: string]: Face }
  }
  /**
   * What the user says.
   *
   * Comes when the recognition hears something.
   */
  'dialog.user.said': {
    text: string
    /** `false` while the recognition still changes the text. */
    is_finish: boolean
  }
  /**
   * An action of the dialog.
   *
   * Comes when the dialog engine reports it.
   */
  'dialog.action': {
    /** The action's words. */
    meta: string[]
  }
  /**
   * The robot begins a line.
   *
   * Comes when the robot begins to speak.
   */
  'dialog.robot.replic.start': {
    /** What the robot says now. */
    text: string
  }
  /**
   * The robot's line has ended.
   *
   * Comes when the robot has spoken.
   *
   * The macro values of `dialog.say` are withdrawn with it.
   */
  'dialog.robot.replic.finish': Nothing
  /**
   * Settings changed.
   *
   * Comes when somebody changed settings.
   *
   * It does not say which: read them again.
   */
  'system.settings.update': Nothing
  /**
   * The script has ended.
   *
   * Comes when a script ended.
   */
  'system.scripts.end': Nothing
  /**
   * An event of the host's own.
   *
   * Comes when the host sends it.
   *
   * Attributes named `id` or `type` do not arrive: the envelope's do.
   */
  'system.custom.event.core': { [name: string]: unknown }
  /**
   * An application of the robot has ended.
   *
   * Comes when the host reports it.
   */
  'system.application.finish': {
    /** The application. */
    name: string
    /** How it ended, in the robot platform's numbering. An integer. */
    status: number
    /** Any value. */
    data: unknown
  }
  /**
   * The drive mode.
   *
   * Comes when it changed.
   */
  'system.drive.mode': {
    /** In the robot platform's numbering. An integer. */
    mode: number
  }
  /**
   * How the robot moves.
   *
   * Comes when it changed.
   */
  'system.drive.status': {
    /** In the robot platform's numbering. An integer. */
    status: number
  }
  /**
   * How the way to the charger goes.
   *
   * Comes when it changed.
   */
  'system.drive.charge': {
    /** In the robot platform's numbering. An integer. */
    charge: number
  }
  /**
   * How the training of a face goes.
   *
   * Comes when a step of the training.
   */
  'face.add.status': {
    /** The training step. An integer. */
    status: number
  }
  /**
   * The face that counts most now.
   *
   * Comes when it changed.
   */
  'face.recognize.general': {
    /** Exact up to 2^53; the simulator gives the face's track id, 0 for none. An integer. */
    general: number
  }
  /**
   * Whether an operator has taken over.
   *
   * Comes when it changed.
   */
  'operator.control.status': {
    status: boolean
  }
  /**
   * The operator's answer.
   *
   * Comes when an operator answered a call.
   *
   * The code is a text, not a number.
   */
  'operator.call.response': {
    /** A text: the operator's code, "0" to "255". */
    response: string
  }
  /**
   * The page is out of sight.
   *
   * Comes when the host reports it.
   */
  'system.page.hidden': {
    /** As the host gives it. */
    close: boolean
  }
  /**
   * Reaches the page, but only a host publishes it.
   *
   * Comes when a host publishes it.
   */
  'parameters.response': { [name: string]: unknown }
}

/**
 * Which topics may come of a request: before the robot has done with it ("now") and at any time
 * ("later"); "interim" names those of them that never end it, since another reply follows.
 */
export interface ReplyTopics {
  'system.interaction.control': {
    now: never
    later: 'system.interaction.state'
    interim: never
  }
  'system.scripts.control': {
    now: 'system.scripts.start.result'
    later: 'system.scripts.end'
    interim: never
  }
  'dialog.say': {
    now: never
    later: 'dialog.robot.replic.start' | 'dialog.robot.replic.finish'
    interim: 'dialog.robot.replic.start'
  }
  'dialog.replica.get': {
    now: 'dialog.replica.load'
    later: never
    interim: never
  }
  'face.recognize.control': {
    now: never
    later: 'face.add.status'
    interim: never
  }
  'system.general.touch': {
    now: 'system.general.setted'
    later: never
    interim: never
  }
  'database.user.request': {
    now: 'database.user.response'
    later: never
    interim: never
  }
  'operator.call.request': {
    now: never
    later: 'operator.call.response' | 'operator.control.status'
    interim: never
  }
  'printer.print': {
    now: 'printer.success' | 'printer.error' | 'printer.nopaper' | 'printer.noprinter' | 'printer.paper.low'
    later: never
    interim: 'printer.paper.low'
  }
  'printer.state': {
    now: 'printer.state.info'
    later: never
    interim: never
  }
  'dispenser.dispense': {
    now: 'dispenser.nodispenser' | 'dispenser.not.connected'
    later: 'dispenser.communication.timeout' | 'dispenser.card.dispensing' | 'dispenser.card.preempty' | 'dispenser.card.empty' | 'dispenser.cardbin.full' | 'dispenser.card.error' | 'dispenser.sensor'
    interim: 'dispenser.card.dispensing' | 'dispenser.card.preempty' | 'dispenser.cardbin.full'
  }
  'scanner.document.request': {
    now: 'scanner.document.response'
    later: 'scanner.document.state' | 'scanner.document.progress' | 'scanner.document.error' | 'scanner.document.finish'
    interim: 'scanner.document.state' | 'scanner.document.progress'
  }
  'scanner.passport.request': {
    now: 'scanner.passport.response'
    later: 'scanner.passport.state' | 'scanner.passport.error' | 'scanner.passport.finish'
    interim: 'scanner.passport.state'
  }
  'system.drive.control': {
    now: never
    later: 'system.drive.mode' | 'system.drive.status' | 'system.drive.charge'
    interim: never
  }
  'keyboard.control.request': {
    now: 'keyboard.control.response'
    later: never
    interim: never
  }
  'system.settings.get': {
    now: 'system.settings.load'
    later: never
    interim: never
  }
  'system.environment.get': {
    now: 'system.environment.load'
    later: never
    interim: never
  }
  'system.sound.properties': {
    now: 'system.sound.load'
    later: never
    interim: never
  }
  'system.play.external': {
    now: never
    later: 'system.play.status'
    interim: never
  }
  'record.audio.request': {
    now: 'record.audio.response'
    later: 'record.audio.response'
    interim: never
  }
  'sip.control': {
    now: 'sip.call.response' | 'sip.file.response' | 'sip.text.response'
    later: 'sip.events'
    interim: never
  }
  'mail.sender.request': {
    now: never
    later: 'mail.sender.response'
    interim: never
  }
}

/** ReplyTopics at run time: now, later, interim; empty lists at the end are left out. */
export const replyTopics: { readonly [topic: string]: readonly (readonly string[])[] } = {
  'system.interaction.control': [
    [],
    ['system.interaction.state'],
  ],
  'system.scripts.control': [
    ['system.scripts.start.result'],
    ['system.scripts.end'],
  ],
  'dialog.say': [
    [],
    ['dialog.robot.replic.start', 'dialog.robot.replic.finish'],
    ['dialog.robot.replic.start'],
  ],
  'dialog.replica.get': [
    ['dialog.replica.load'],
  ],
  'face.recognize.control': [
    [],
    ['face.add.status'],
  ],
  'system.general.touch': [
    ['system.general.setted'],
  ],
  'database.user.request': [
    ['database.user.response'],
  ],
  'operator.call.request': [
    [],
    ['operator.call.response', 'operator.control.status'],
  ],
  'printer.print': [
    ['printer.success', 'printer.error', 'printer.nopaper', 'printer.noprinter',
      'printer.paper.low'],
    [],
    ['printer.paper.low'],
  ],
  'printer.state': [
    ['printer.state.info'],
  ],
  'dispenser.dispense': [
    ['dispenser.nodispenser', 'dispenser.not.connected'],
    ['dispenser.communication.timeout', 'dispenser.card.dispensing', 'dispenser.card.preempty',
      'dispenser.card.empty', 'dispenser.cardbin.full', 'dispenser.card.error', 'dispenser.sensor'],
    ['dispenser.card.dispensing', 'dispenser.card.preempty', 'dispenser.cardbin.full'],
  ],
  'scanner.document.request': [
    ['scanner.document.response'],
    ['scanner.document.state', 'scanner.document.progress', 'scanner.document.error',
      'scanner.document.finish'],
    ['scanner.document.state', 'scanner.document.progress'],
  ],
  'scanner.passport.request': [
    ['scanner.passport.response'],
    ['scanner.passport.state', 'scanner.passport.error', 'scanner.passport.finish'],
    ['scanner.passport.state'],
  ],
  'system.drive.control': [
    [],
    ['system.drive.mode', 'system.drive.status', 'system.drive.charge'],
  ],
  'keyboard.control.request': [
    ['keyboard.control.response'],
  ],
  'system.settings.get': [
    ['system.settings.load'],
  ],
  'system.environment.get': [
    ['system.environment.load'],
  ],
  'system.sound.properties': [
    ['system.sound.load'],
  ],
  'system.play.external': [
    [],
    ['system.play.status'],
  ],
  'record.audio.request': [
    ['record.audio.response'],
    ['record.audio.response'],
  ],
  'sip.control': [
    ['sip.call.response', 'sip.file.response', 'sip.text.response'],
    ['sip.events'],
  ],
  'mail.sender.request': [
    [],
    ['mail.sender.response'],
  ],
}

/**
 * RequestTopics at run time: the attributes' names, each with letters for the kinds of JSON that it
 * may be (none: any) and "!" when it is needed; "*" for any other attribute.
 */
export const requestAttributes: { readonly [topic: string]: string } = {
  'system.log': 'level:s! message:s',
  'system.statistic': 'topic:s! data:a',
  'system.interaction.control': 'state:s!',
  'system.language.set': 'language:s!',
  'system.scripts.control': 'start:s stop:',
  'dialog.say':
    'macroses:o text:s step:s category:os use_general:b use_biometry:b face:o replica:o answer:o terminate:b',
  'dialog.robot.replic.abort': '',
  'dialog.replica.get': 'step:s replica_type:n category:os use_general:b use_biometry:b face:o',
  'face.recognize.control': 'tracking_auto:b tracking_face:n add_face:n del_face:n head_enabled:b',
  'system.general.touch': 'x:n! y:n!',
  'database.user.request': 'get_user:n add_user:o del_user:n',
  'operator.call.request': 'call:b!',
  'printer.print': 'data:s ignore_not_connected:b',
  'printer.state': 'ignore_not_connected:b',
  'dispenser.dispense': 'ignore_not_connected:b',
  'scanner.document.request': 'mode:n brightness:n resolution:n timeout:n ignore_not_connected:b',
  'scanner.passport.request': 'timeout:n ignore_not_connected:b',
  'system.drive.control': 'drive_point:n drive_pause:b drive_mode:n drive_charger:b',
  'keyboard.control.request': 'get_locale: is_visible: set_locale:s show: hide:',
  'system.settings.get': 'settings_type:s! group:s! name:s',
  'system.environment.get': '',
  'system.sound.properties': 'get_volume: set_volume:n get_mic: set_mic:n',
  'system.play.external': 'url:s volume:n stop:',
  'record.audio.request': 'start: timeout:n stop:',
  'sip.control': 'call_start:o play_file:o play_text:o clear_queue: call_stop:',
  'mail.sender.request': 'email:s! subject:s body:s filename:s',
  'dialog.question.answer': 'text:s',
  'cookie.set': '*',
  'cookie.set.done': '*',
  'parameters.get': '*',
  'system.custom.event.js': '*',
}
