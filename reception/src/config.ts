import type { Language } from './texts/index.js'

/** A text for all languages, or one for each; a language without one shows the English. */
export type Localized = string | ({ readonly en: string } & { readonly [L in Language]?: string })

/** Somebody to visit. */
export interface Person {
  readonly name: string
  readonly department: Localized
  /** The telephone number, as a text. */
  readonly number: string
  /** The drive point near this person, if the robot can drive there. */
  readonly point?: number
}

/** A place to which the robot can drive. */
export interface Destination {
  readonly name: Localized
  readonly point: number
  readonly icon: 'meeting' | 'cafe' | 'lift' | 'toilet' | 'exit' | 'place'
  /** How to walk there, for a robot that cannot drive now. */
  readonly directions?: Localized
}

export const services = ['visit', 'badge', 'passport', 'card', 'call', 'way', 'talk'] as const
export type Service = (typeof services)[number]

export const steps = ['passport', 'badge', 'card', 'call', 'way'] as const
export type Step = (typeof steps)[number]

/** What a site changes. */
export interface Config {
  readonly company: Localized
  readonly language: Language
  readonly languages: readonly Language[]
  /** The tiles of the menu, in their order. */
  readonly services: readonly Service[]
  /** The steps of a guided visit, in their order. */
  readonly steps: readonly Step[]
  readonly people: readonly Person[]
  readonly destinations: readonly Destination[]
  /** The drive point to which the robot returns; without one it stays where it is. */
  readonly homePoint?: number
  /** Seconds without a touch until the page asks whether somebody is still there. */
  readonly idleSeconds: number
  /** Seconds of the visible count-down after that. */
  readonly countdownSeconds: number
  /** As idleSeconds, while a call, a drive or an operator goes on. */
  readonly busySeconds: number
  /** Seconds for which the greeting stays. */
  readonly greetingSeconds: number
  /** Seconds that the scanner waits for a passport. */
  readonly scanSeconds: number
  /** Whether a badge may have a picture of the visitor. */
  readonly camera: boolean
  /** What the robot's actions offer on the screen. */
  readonly actions: { readonly [action: string]: Service | 'operator' | 'language' }
}

export const defaults: Config = {
  company: {
    en: 'Example Company',
    es: 'Compañía Ejemplo',
    zh: '示例公司',
    ar: 'شركة المثال',
  },
  language: 'en',
  languages: ['en', 'es', 'zh', 'ar'],
  services,
  steps,
  people: [
    {
      name: 'Anna Berger',
      department: { en: 'Management', es: 'Dirección', zh: '管理层', ar: 'الإدارة' },
      number: '100',
      point: 2,
    },
    {
      name: 'Daniel Okafor',
      department: { en: 'Development', es: 'Desarrollo', zh: '研发部', ar: 'التطوير' },
      number: '101',
      point: 2,
    },
    {
      name: 'Lucía Fernández',
      department: { en: 'Sales', es: 'Ventas', zh: '销售部', ar: 'المبيعات' },
      number: '102',
      point: 3,
    },
    {
      name: '王小明 (Wang Xiaoming)',
      department: { en: 'Purchasing', es: 'Compras', zh: '采购部', ar: 'المشتريات' },
      number: '103',
      point: 4,
    },
    {
      name: 'فاطمة الأحمد (Fatima Alahmad)',
      department: {
        en: 'Human resources',
        es: 'Recursos humanos',
        zh: '人事部',
        ar: 'الموارد البشرية',
      },
      number: '104',
      point: 4,
    },
    {
      name: 'Tom Lindqvist',
      department: { en: 'Facilities', es: 'Mantenimiento', zh: '设施部', ar: 'المرافق' },
      number: '105',
    },
  ],
  destinations: [
    {
      name: { en: 'Meeting rooms', es: 'Salas de reuniones', zh: '会议室', ar: 'قاعات الاجتماعات' },
      point: 2,
      icon: 'meeting',
      directions: {
        en: 'At the end of the corridor, on the right.',
        es: 'Al final del pasillo, a la derecha.',
        zh: '走廊尽头右侧。',
        ar: 'في نهاية الممر، على اليمين.',
      },
    },
    {
      name: { en: 'Café', es: 'Cafetería', zh: '咖啡厅', ar: 'المقهى' },
      point: 3,
      icon: 'cafe',
      directions: {
        en: 'On the second floor. Take the stairs on your left.',
        es: 'En la segunda planta. Suba por la escalera de la izquierda.',
        zh: '在三楼，请走您左侧的楼梯。',
        ar: 'في الطابق الثاني. اصعد الدرج على يسارك.',
      },
    },
    {
      name: { en: 'Lifts', es: 'Ascensores', zh: '电梯', ar: 'المصاعد' },
      point: 4,
      icon: 'lift',
      directions: {
        en: 'Right behind the reception.',
        es: 'Justo detrás de la recepción.',
        zh: '就在接待处后面。',
        ar: 'خلف الاستقبال مباشرة.',
      },
    },
    {
      name: { en: 'Toilets', es: 'Aseos', zh: '洗手间', ar: 'دورات المياه' },
      point: 5,
      icon: 'toilet',
      directions: {
        en: 'Next to the lifts.',
        es: 'Junto a los ascensores.',
        zh: '在电梯旁边。',
        ar: 'بجانب المصاعد.',
      },
    },
    {
      name: { en: 'Exit', es: 'Salida', zh: '出口', ar: 'المخرج' },
      point: 6,
      icon: 'exit',
      directions: {
        en: 'Straight ahead, through the glass door.',
        es: 'Todo recto, por la puerta de vidrio.',
        zh: '直走，穿过玻璃门。',
        ar: 'إلى الأمام مباشرة، عبر الباب الزجاجي.',
      },
    },
  ],
  homePoint: 1,
  idleSeconds: 60,
  countdownSeconds: 10,
  busySeconds: 300,
  greetingSeconds: 6,
  scanSeconds: 30,
  camera: true,
  actions: {
    'printer.light': 'badge',
    'screen.map': 'way',
    'screen.language': 'language',
    'operator.light': 'operator',
  },
}
